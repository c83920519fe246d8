#include "FunctionEvaluator.h"

#include "FindingText.h"
#include "FunctionCall.h"
#include "LuaState.h"

FunctionEvaluator::FunctionEvaluator()
    : m_state(std::make_unique<LuaState>())
{
}

FunctionEvaluator::~FunctionEvaluator() = default;

QString FunctionEvaluator::add(eParameterProperty kind, quint16 index, const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    if (bytes.size() > MostTextBytes)
        return FindingText::tr("the function is longer than %1 bytes").arg(MostTextBytes);
    int place = NoFunction;
    const QString reason = m_state->compile(bytes, place);
    if (!reason.isEmpty())
        return reason;
    std::vector<int> &places = m_places[size_t(kind)];
    places.resize(qMax(places.size(), size_t(index) + 1), NoFunction);
    places[index] = place;
    return {};
}

int FunctionEvaluator::find(eParameterProperty kind, quint16 index) const
{
    const std::vector<int> &places = m_places[size_t(kind)];
    return index < places.size() ? places[index] : NoFunction;
}

void FunctionEvaluator::setCallbackProvider(CallbackProvider *callbacks)
{
    m_state->setCallbackProvider(callbacks);
}

FunctionOutcome FunctionEvaluator::run(int function, FunctionCall &call)
{
    FunctionOutcome outcome = m_state->run(function, call);
    if (call.isGivenUp)
        outcome.reason += giveUp(call);
    return outcome;
}

bool FunctionEvaluator::isRunning() const
{
    return m_state->isRunning();
}

QString FunctionEvaluator::giveUp(const FunctionCall &call)
{
    m_places[size_t(call.kind())][call.index()] = NoFunction;
    if (++m_givenUp < MostGivenUp)
        return FindingText::tr("; the function is not run again");
    m_places = {};
    return FindingText::tr("; after %1 such functions none of the device is run again")
        .arg(MostGivenUp);
}
