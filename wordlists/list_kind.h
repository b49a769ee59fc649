#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "engine/run_options.h"

namespace korv {

/// The two uses of word lists, and how captions and messages tell them apart.
enum class ListKind { WordsToIgnore, CountOnly };

/// What the state label says once a list is loaded: "One word-to-ignore loaded", "12 words-to-ignore loaded".
std::string LoadedLabel(ListKind kind, size_t count);
/// The caption of the button that adds a file, with the number of files in the list.
std::string FilesButtonCaption(ListKind kind, size_t files);
/// The hint in the list of files while no file is selected: how to add a file.
std::string FilesListHint(ListKind kind);
/// The label that says what a list consists of: the words of the file named `file` (empty for no file) and
/// `typed` extra entries.
std::string ListStateLabel(ListKind kind, std::string_view file, size_t typed);
/// Title of the dialog that asks for a list file.
std::string_view SelectFileTitle(ListKind kind);

/// What stands in the text box while a list is read.
std::string_view ReadingNotice(ListKind kind);

/// The notice about words to ignore: empty where `mode` lets every phrase pass, else whether a list is in
/// force.
std::string_view SetWordsToIgnoreNotice(IgnoreRule mode, bool inForce);

}  // namespace korv
