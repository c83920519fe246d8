#pragma once

#include <KrMultilingual/ParameterTextMap.h>

#include <QtCore/QString>

#include <functional>
#include <optional>

/// A number with the text that stands for it: "3: Torque control".
namespace ChoiceForm {

/// The text that is shown of an entry, in the active language.
using EntryText = std::function<QString(const ParameterText &)>;

/// The key of a value text that the choice has; empty for any other text.
std::optional<qint32> keyOf(const QString &valueText, const ParameterTextMap &choice);

/// Key, ": " and entry text; the value text as it stands where the choice lacks it.
QString show(const QString &valueText, const ParameterTextMap &choice, const EntryText &entryText);

/// The number before ":" or alone; empty where there is none.
std::optional<QString> readNumber(const QString &text);

/// The lowest key whose entry text is the typed one, outer blanks apart; else the text unchanged,
/// which the firmware refuses.
QString readText(const QString &text, const ParameterTextMap &choice, const EntryText &entryText);

} // namespace ChoiceForm
