#pragma once

#include <QtCore/qglobal.h>

#include <optional>

/// Ends dependencies that go round in a circle. Counts the dispatches that run inside each other, and all
/// that follow from one outermost change.
class DispatchLimit {
public:
    static constexpr int Depth = 64;
    static constexpr int Count = 100000;

    enum class eDecision { Dispatch, Cut, CutAndReport };

    /// A dispatch that goes through is to be left again.
    eDecision enter()
    {
        if (m_depth < Depth && m_count < Count) {
            ++m_depth;
            ++m_count;
            return eDecision::Dispatch;
        }
        if (m_isReported)
            return eDecision::Cut;
        m_isReported = true;
        return eDecision::CutAndReport;
    }
    void leave()
    {
        --m_depth;
        resetWhenIdle();
    }

    /// Questions before a change are counted apart; they are to be left too where true.
    bool enterPreparation()
    {
        if (m_depth >= Depth || m_preparations >= Count)
            return false;
        ++m_depth;
        ++m_preparations;
        return true;
    }

    /// A change dispatches several kinds of dependency. They nest.
    void beginChange()
    {
        ++m_changes;
        beginQuestions();
    }
    void endChange()
    {
        --m_changes;
        endQuestions();
        resetWhenIdle();
    }
    /// Many questions to the functions count as one change for what functions may use, and as none for
    /// the dispatches. They nest.
    void beginQuestions()
    {
        if (m_rounds++ == 0)
            ++m_outermostRounds;
    }
    void endQuestions() { --m_rounds; }
    /// Number of the outermost change or round of questions that runs, from 1. Nothing: none.
    std::optional<quint64> change() const
    {
        return m_rounds > 0 ? std::optional(m_outermostRounds) : std::nullopt;
    }

private:
    void resetWhenIdle()
    {
        if (m_depth > 0 || m_changes > 0)
            return;
        m_count = 0;
        m_preparations = 0;
        m_isReported = false;
    }

    int m_changes = 0;
    /// Of questions, the changes included.
    int m_rounds = 0;
    quint64 m_outermostRounds = 0;
    int m_depth = 0;
    int m_count = 0;
    int m_preparations = 0;
    bool m_isReported = false;
};
