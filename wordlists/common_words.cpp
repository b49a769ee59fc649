#include "wordlists/common_words.h"

#include <algorithm>
#include <string>

#include "base/translation.h"
#include "wordlists/questions.h"

namespace korv {

const CommonWordsLanguage* FindCommonWordsLanguage(std::string_view code) {
  const auto found = std::find_if(kCommonWordsLanguages.begin(), kCommonWordsLanguages.end(),
                                  [&](const CommonWordsLanguage& l) { return l.Code == code; });
  return found == kCommonWordsLanguages.end() || code.empty() ? nullptr : &*found;
}

std::optional<std::filesystem::path> CommonWordsFile(const CommonWordsLanguage& language,
                                                     const std::filesystem::path& programFolder,
                                                     const FileSystem& files, Messages& messages) {
  std::filesystem::path path = programFolder / language.File;
  if (files.FileExists(path)) return path;
  messages.Show(
      {.Text = Fill(Tr("%1 not found."), {PathToText(path)}), .Title = Tr("Error"), .Icon = Icon::Critical});
  return std::nullopt;
}

bool AddCommonWords(const CommonWordsLanguage& language, const std::filesystem::path& programFolder,
                    const FileSystem& files, WordFileList& list, Messages& messages) {
  if (language.File.empty()) return false;
  const Answer answer =
      messages.Show({.Text = Fill(Tr("Load common words file for %1?"), {ItemText(language)}),
                     .Title = Tr("Load common words file"),
                     .Icon = Icon::Question,
                     .Buttons = Buttons::YesNo,
                     .DefaultAnswer = Answer::Yes,
                     .Question = questions::kLoadCommonWords});
  if (answer != Answer::Yes) return false;
  const auto path = CommonWordsFile(language, programFolder, files, messages);
  return path && list.AddOrSelect(PathToText(*path), messages);
}

void SetPathToCWDs_Eng(const std::filesystem::path& programFolder, WordFileList& list, Messages& messages) {
  list.AddOrSelect(PathToText(programFolder / kCommonWordsLanguages.front().File), messages);
}

}  // namespace korv
