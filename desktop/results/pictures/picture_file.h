#pragma once

#include <QSizeF>
#include <filesystem>
#include <optional>
#include <string>

#include "desktop/results/pictures/picture.h"
#include "platform/files.h"

namespace korv {

enum class PictureForm { Svg, Png };

/// The form that belongs to the extension of a file, upper or lower case; PNG for all but "svg".
PictureForm PictureFormOfFile(const std::filesystem::path& path);

/// The bytes of a file that shows the picture in `size`, in units of the screen. A PNG has two dots for each
/// of them, so that it can be printed. An SVG holds title and description.
std::string PictureBytes(const Picture& picture, const PictureStyle& style, const QSizeF& size,
                         PictureForm form);

/// Writes `bytes` beside `path` and renames: what was there stays when something fails.
std::optional<FileError> WritePicture(FileSystem& files, const std::filesystem::path& path,
                                      const std::string& bytes);

}  // namespace korv
