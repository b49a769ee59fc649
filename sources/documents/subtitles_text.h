#pragma once

#include <string_view>

#include "sources/documents/extracted_text.h"

namespace korv {

enum class SubtitleFormat { Srt, Vtt, Lrc };

/// Takes what is said out of subtitles or the words of a song: numbers, times, notes, tags and the dash
/// before a speaker's words are left out. Each cue, of LRC each line, is a place by its number in the file;
/// phrases end with it only where its text ends a sentence, for most sentences run over several. Linear.
void AddSubtitles(std::string_view file, SubtitleFormat format, ExtractedText& text);

}  // namespace korv
