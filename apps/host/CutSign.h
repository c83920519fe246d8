#pragma once

/// What shows that a block is not as long any more as it was saved.
enum class eCutSign {
    Missing, ///< The manifest knows the block, the folder lacks it.
    ShorterThanNoted, ///< Fewer bytes than the manifest notes.
    FewerSectionsThanNoted,
    NoLastLineEnd,
    LastSectionIncomplete, ///< Value keys of the last section are missing.
    LastParametersMissing, ///< The sections of exactly the last coordinates are missing.
};
