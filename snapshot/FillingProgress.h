#pragma once

#include <QtCore/QtGlobal>

#include <functional>
#include <utility>

/// Tells how far a filling of the comparison has come, over its steps of equal weight.
class FillingProgress {
public:
    /// `done` rises from 0 to `total`. False ends the filling.
    using Advance = std::function<bool(qsizetype done, qsizetype total)>;
    enum eStep { MakingRows, MakingItems, StepCount };

    /// A null function: nobody is told.
    explicit FillingProgress(Advance advance)
        : m_advance(std::move(advance))
    {
    }

    /// Before each piece of a step. False once the filling was ended.
    bool advance(eStep step, qsizetype done, qsizetype count)
    {
        if (m_advance && !m_isEnded)
            m_isEnded = !m_advance((step * count + done) * Total / (StepCount * count), Total);
        return !m_isEnded;
    }
    bool isEnded() const { return m_isEnded; }

private:
    static constexpr qsizetype Total = 1000;

    Advance m_advance;
    bool m_isEnded = false;
};
