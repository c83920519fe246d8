#pragma once

#include <chrono>
#include <optional>

/// What is to go wrong with the next answers of a simulated drive.
class AnswerFaults {
public:
    using milliseconds = std::chrono::milliseconds;

    struct Fate {
        /// The request is not even looked at.
        bool isRefused = false;
        bool isBusy = false;
        bool isLost = false;
        bool isDoubled = false;
        milliseconds delay {0};

        friend bool operator==(const Fate &, const Fate &) = default;
    };

    /// Each of the next `count` answers; replaces what was said of the same fault before.
    void refuse(int count) { m_refused = count; }
    void beBusy(int count) { m_busy = count; }
    void lose(int count) { m_lost = count; }
    void repeat(int count) { m_doubled = count; }
    void delay(int count, milliseconds span);
    /// Answers `count` more requests, then none.
    void fallSilentAfter(int count) { m_answersLeft = count; }
    void clear() { *this = AnswerFaults(); }

    /// Of the next answer.
    Fate next();

private:
    int m_refused = 0;
    int m_busy = 0;
    int m_lost = 0;
    int m_doubled = 0;
    int m_delayed = 0;
    milliseconds m_delay {0};
    /// Empty: no end.
    std::optional<int> m_answersLeft;
};
