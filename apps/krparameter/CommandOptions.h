#pragma once

#include "apps/krparameter/Option.h"

#include <QtCore/QCoreApplication>

/// The options that every command takes.
class CommandOptions {
    Q_DECLARE_TR_FUNCTIONS(CommandOptions)

public:
    static QList<Option> all();
};

/// Their names, and those that several commands share.
namespace OptionName {

constexpr QLatin1StringView Device("device");
constexpr QLatin1StringView Project("project");
constexpr QLatin1StringView Axis("axis");
constexpr QLatin1StringView AccessLevel("access-level");
constexpr QLatin1StringView Language("lang");
constexpr QLatin1StringView Json("json");
constexpr QLatin1StringView Force("force");
constexpr QLatin1StringView AllowLoss("allow-loss");
constexpr QLatin1StringView DespiteUnread("despite-unread");
constexpr QLatin1StringView Help("help");
constexpr QLatin1StringView Version("version");
constexpr QLatin1StringView Filter("filter");
constexpr QLatin1StringView Output("output");

} // namespace OptionName
