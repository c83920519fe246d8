#pragma once

#include <QtCore/QtGlobal>

/// Told how far a long job has come; may end it. Implemented by the user interface.
class Progress {
public:
    /// `done` rises from 0 to `total`. False ends the job, which then answers that it was cancelled.
    virtual bool advance(qsizetype done, qsizetype total) = 0;

protected:
    ~Progress() = default;
};
