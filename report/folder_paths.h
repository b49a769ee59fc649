#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace korv {

/// `path` with "{Folder}" in place of `folder` where it begins with it; a folder is only matched whole
/// ("texts" is no beginning of "texts2/a.txt"). Both are texts as shown to the user.
std::string AbbreviatePath(std::string_view path, std::string_view folder);

/// The same for all paths of a listing.
std::vector<std::string> AbbreviatePaths(const std::vector<std::filesystem::path>& paths,
                                         std::string_view folder);

}  // namespace korv
