#pragma once

#include "container/ParameterContainerPrivate.h"
#include "value/LifeGuard.h"

/// Stands around questions to many functions at once, which together may use what one change may.
class QuestionRound {
public:
    /// The container may go meanwhile.
    explicit QuestionRound(const ParameterContainerPrivate &container)
        : m_container(container)
        , m_guard(&container)
    {
        m_container.beginQuestions();
    }
    ~QuestionRound()
    {
        if (m_guard)
            m_container.endQuestions();
    }
    Q_DISABLE_COPY_MOVE(QuestionRound)

private:
    const ParameterContainerPrivate &m_container;
    const LifeGuard m_guard;
};
