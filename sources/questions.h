#pragma once

#include "platform/messages.h"

/// What reading asks.
namespace korv::questions {

/// Name an output file before a large input is counted?
inline constexpr Question kLargeInput{"LargeInput"};
/// Refused for want of an output file; a further button may offer to show the result in the window only.
inline constexpr Question kSeveralFiles{"SeveralFiles"};
/// Refused for want of files; a further button may offer to count those of the subfolders.
inline constexpr Question kOnlySubfolders{"OnlySubfolders"};
/// Read a text without a signature as UTF-8?
inline constexpr Question kTextEncoding{"TextEncoding"};
/// Go on with a large word list that has LF line ends?
inline constexpr Question kLargeWordList{"LargeWordList"};
/// Go on with a .docx whose text is large?
inline constexpr Question kLargeDocx{"LargeDocx"};
/// Stop taking the text out of a .docx?
inline constexpr Question kStopDocx{"StopDocx"};
/// Go on with a file that unpacks to suspiciously much?
inline constexpr Question kPackedDensely{"PackedDensely"};

}  // namespace korv::questions
