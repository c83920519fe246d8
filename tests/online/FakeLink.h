#pragma once

#include "apps/online/OnlineLink.h"

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QPointer>

/// A line that the test answers on, over a drive that is a table of registers.
class FakeLink final : public OnlineLink {
public:
    struct Sent {
        quint32 ticket;
        RegisterSpan span;
        /// Empty: a read.
        QList<quint16> registers;

        bool isRead() const { return registers.isEmpty(); }
    };

    void open() override { ++openings; }
    void close() override
    {
        ++closings;
        sent.clear();
    }
    void read(quint32 ticket, const RegisterSpan &span) override
    {
        sent.append({ticket, span, {}});
    }
    void write(quint32 ticket, const RegisterSpan &span, const QList<quint16> &registers) override
    {
        sent.append({ticket, span, registers});
    }
    void forget(quint32 ticket) override { forgotten.append(ticket); }

    /// The request that was sent first of those that were not answered.
    Sent take() { return sent.takeFirst(); }
    void answer(const Sent &request, OnlineAnswer::eKind kind)
    {
        tell(request.ticket, {kind, {}, QStringLiteral("reason")});
    }
    /// Reads from the table and writes to it.
    void answer(const Sent &request)
    {
        QList<quint16> &unit = memory[request.span.unit];
        if (unit.size() < request.span.end())
            unit.resize(request.span.end());
        if (!request.isRead())
            std::copy(request.registers.begin(), request.registers.end(),
                unit.begin() + request.span.first);
        tell(request.ticket,
            {OnlineAnswer::eKind::Good,
                request.isRead() ? unit.sliced(request.span.first, request.span.count)
                                 : QList<quint16>(),
                {}});
    }
    /// Answers everything, also what the answers lead to at once. The number of answers.
    int answerAll()
    {
        int count = 0;
        for (; !sent.isEmpty(); ++count)
            answer(take());
        return count;
    }
    /// More answers come with the ones that were told, until this.
    void endAnswers() { Q_EMIT allAnswered(); }
    void comeUp() { Q_EMIT opened(); }
    void breakDown() { Q_EMIT closed(QStringLiteral("broken")); }

    QHash<quint8, QList<quint16>> memory;
    QList<Sent> sent;
    QList<quint32> forgotten;
    int openings = 0;
    int closings = 0;
    /// What is answered comes together with more.
    bool holdsAnswers = false;

private:
    void tell(quint32 ticket, const OnlineAnswer &answer)
    {
        // Who hears it may delete this.
        const QPointer<FakeLink> guard(this);
        Q_EMIT answered(ticket, answer);
        if (guard && !holdsAnswers)
            Q_EMIT allAnswered();
    }
};
