#pragma once

#include <chrono>

/// How patient a session is.
struct OnlineRules {
    using milliseconds = std::chrono::milliseconds;

    /// Requests under way at the same time.
    int window = 4;
    /// How long an answer may take, beyond what its value needs.
    milliseconds answerSpan {500};
    /// How often a request is sent before it counts as lost.
    int attempts = 4;
    /// Before the second attempt; doubles up to the longest.
    milliseconds firstPause {50};
    milliseconds longestPause {1000};
    /// Between two rounds over the values that are kept consistent.
    milliseconds cycleInterval {100};
    /// How long a drive may be left alone before it is asked whether it is there; 0: for ever.
    milliseconds heartbeatInterval {1000};
    /// How long opening the line may take.
    milliseconds contactSpan {3000};
    /// Between two attempts to reach a drive; doubles like the other.
    milliseconds firstContactPause {250};
    milliseconds longestContactPause {5000};
    /// How often a drive is called before the session gives up; 0: until it is told to.
    int contactAttempts = 3;
    /// Whether a drive that vanished is called again.
    bool returnsToVanished = false;
};
