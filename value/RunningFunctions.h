#pragma once

#include <QtCore/qglobal.h>

#include <memory>
#include <vector>

/// Stands around every call into a firmware's functions. What such a function was given must outlive
/// it, though a listener that it leads to may remove it: that is kept here until no function runs.
///
/// Functions of all firmwares count, because one may lead to another's. All run on one thread.
class RunningFunctions {
public:
    RunningFunctions() { ++running; }
    ~RunningFunctions()
    {
        if (--running == 0 && !kept.empty())
            release();
    }
    Q_DISABLE_COPY_MOVE(RunningFunctions)

    static bool isAny() { return running > 0; }
    /// Destroyed when the outermost function returns.
    static void keep(std::shared_ptr<void> object) { kept.push_back(std::move(object)); }

private:
    static void release();

    static int running;
    static std::vector<std::shared_ptr<void>> kept;
};
