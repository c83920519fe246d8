#pragma once

#include "FunctionEvaluator.h"
#include "ValueBounds.h"
#include "ValueScaling.h"

#include <KrFirmware/eFunctionKind.h>

#include <QtCore/QStringList>

#include <array>
#include <optional>

class FunctionTables;
class ParameterData;

/// Answers from the functions that an element names by index. Where it names none, where there is
/// none, and where one fails, there is no answer.
///
/// A failure is one critical message, given after the outermost question has its answer: a listener
/// may then do what it likes with the parameters.
class IndexedFunctions {
public:
    explicit IndexedFunctions(const FunctionTables &tables);
    Q_DISABLE_COPY_MOVE(IndexedFunctions)

    void setCallbackProvider(CallbackProvider *callbacks);

    /// Lower and upper limit as native texts; a null text is no answer.
    std::array<QString, 2> limits(const ParameterData &data, quint16 element);
    std::optional<ValueScaling> scaling(const ParameterData &data, quint16 element);
    bool isHidden(const ParameterData &data, quint16 element);
    void run(eFunctionKind kind, const ParameterData &data, quint16 element);

    /// At the end of every question. While a function runs that led to it, nothing happens.
    void report();

private:
    FunctionOutcome outcome(
        eParameterProperty kind, quint16 index, const ParameterData &data, quint16 element);
    void note(FunctionCall &call, const QString &reason);
    void tell(const QString &title, const QString &change, const QString &text);
    void note(eParameterProperty kind, quint16 index, const ParameterData &data, quint16 element,
        const QString &reason);

    /// Null where the description has no functions.
    std::unique_ptr<FunctionEvaluator> m_evaluator;
    CallbackProvider *m_callbacks = nullptr;
    QStringList m_failures;
    /// The container's domain when the failures were noted: it may be gone when they are told.
    QString m_title;
    /// The change that the failures come of; empty where they come of none.
    QString m_change;
    /// Failures that were told of one change.
    QString m_toldChange;
    QStringList m_toldOfChange;
};
