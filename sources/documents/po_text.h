#pragma once

#include <string>
#include <string_view>

#include "sources/documents/document_fault.h"
#include "sources/documents/extracted_text.h"
#include "sources/documents/segment_choice.h"

namespace korv {

/// The encoding that the header of a catalogue names; "UTF-8" where it names none.
std::string EncodingOfPo(std::string_view file);

/// Takes messages, or what stands for them, out of a catalogue of translations (.po, .pot), given as UTF-8.
/// Each entry is a place, and phrases end with each text. The header, comments and obsolete entries are left
/// out. False where a line is none of such a file. Linear.
bool AddPo(std::string_view file, const SegmentChoice& choice, ExtractedText& text);

}  // namespace korv
