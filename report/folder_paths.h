#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace korv {

/// A path as given, as it is shown: bytes that are no UTF-8 become U+FFFD, as in the paths found below it.
std::string ShownPath(std::string_view given);

/// `path` with "{Folder}" in place of `folder` where it begins with it; a folder is only matched whole
/// ("texts" is no beginning of "texts2/a.txt"). Both are texts as shown to the user.
std::string AbbreviatePath(std::string_view path, std::string_view folder);

/// The same for all paths of a listing; "-" for standard input, which has none.
std::vector<std::string> AbbreviatePaths(const std::vector<std::filesystem::path>& paths,
                                         std::string_view folder);

}  // namespace korv
