#pragma once

#include "app/run/run.h"
#include "app/settings/settings.h"

namespace korv {

/// The files of a folder that settings want.
FileSelection SelectionOf(const Settings& settings);

/// The word rules that settings mean, without AllowedExtraChars.
WordRules WordRulesOf(const Settings& settings);

/// What a run takes from settings when it starts. The caller adds the word filters, the text of a clipboard
/// or a stream, and how the program treats what settings do not say. Report options, the filter and the
/// output file are read again when a listing starts.
RunRequest RunRequestOf(const Settings& settings);

/// The same run, but of single words instead of phrases: each word of the text is listed that reaches the
/// minimum frequency, under the same rules. None is redundant for standing inside another one. It writes no
/// output file.
RunRequest SingleWordsOf(RunRequest request);

}  // namespace korv
