#pragma once

/// What the program answers. Scripts rely on the numbers; they never change.
enum class eExitCode : int {
    Good = 0,
    Differences = 1,
    Usage = 2, ///< The command line asks for something that there is not.
    UnreadableInput = 3, ///< A description or a project cannot be read, or was cut.
    ValueRejected = 4,
    NotWritable = 5, ///< Not by this user.
    WriteFailed = 6, ///< Also where a save was refused because it would lose something.
};
