#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string_view>

#include "base/translation.h"
#include "platform/files.h"
#include "platform/messages.h"
#include "wordlists/word_file_list.h"

namespace korv {

/// One of the languages to choose from.
struct CommonWordsLanguage {
  std::string_view Code;  ///< As on the command line.
  std::string_view Item;  ///< In English; see ItemText().
  std::string_view File;  ///< In the program's folder; empty for no language.
};

inline constexpr std::array<CommonWordsLanguage, 8> kCommonWordsLanguages = {{
    {"en", TrLater("English"), "cwds_en.txt"},
    {"de", TrLater("German"), "cwds_de.txt"},
    {"es", TrLater("Spanish"), "cwds_es.txt"},
    {"pt", TrLater("Portuguese"), "cwds_pt.txt"},
    {"it", TrLater("Italian"), "cwds_it.txt"},
    {"fr", TrLater("French"), "cwds_fr.txt"},
    {"all", TrLater("All six languages"), "cwds_en_de_es_pt_it_fr.txt"},
    {"", TrLater("[No language selected]"), ""},
}};

/// What a list calls the language, in that of the user.
inline const char* ItemText(const CommonWordsLanguage& language) {
  return Tr(language.Item.data());
}

/// The language of a code such as "en" or "all"; null for any other text.
const CommonWordsLanguage* FindCommonWordsLanguage(std::string_view code);

/// Where the file of a language lies, if it is there; a missing one is reported as such.
std::optional<std::filesystem::path> CommonWordsFile(const CommonWordsLanguage& language,
                                                     const std::filesystem::path& programFolder,
                                                     const FileSystem& files, Messages& messages);

/// What the choice of a language does: asks whether to load the language's file, puts it into
/// `list` and selects it. True when the selected file is to be loaded now.
bool AddCommonWords(const CommonWordsLanguage& language, const std::filesystem::path& programFolder,
                    const FileSystem& files, WordFileList& list, Messages& messages);

/// Puts the English file into the list.
void SetPathToCWDs_Eng(const std::filesystem::path& programFolder, WordFileList& list, Messages& messages);

}  // namespace korv
