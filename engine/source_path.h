#pragma once

#include <string>

namespace korv {

/// One of several paths whose texts are counted together.
struct SourcePath {
  enum class Kind {
    File,
    Folder,
    StandardInput,  ///< Path is "-".
  };

  std::string Path;  ///< As given, without separators at the end of a folder's.
  Kind What = Kind::File;

  bool operator==(const SourcePath&) const = default;
};

}  // namespace korv
