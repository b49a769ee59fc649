#include "desktop/results/pictures/picture_file.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <array>

#include "desktop/results/pictures/picture_svg.h"
#include "engine/text/unicode.h"

namespace korv {
namespace {

constexpr double kDotsPerUnit = 2;

std::string PngOf(const Picture& picture, const PictureStyle& style, const QSizeF& size) {
  QImage image((size * kDotsPerUnit).toSize(), QImage::Format_RGB32);
  image.setDevicePixelRatio(kDotsPerUnit);
  image.setText(QStringLiteral("Title"), picture.Title());
  image.setText(QStringLiteral("Description"), picture.Description());
  QPainter painter(&image);
  painter.setFont(style.Font);
  PaintWhole(picture, painter, QRectF(QPointF(), size), style);
  painter.end();
  QByteArray bytes;
  QBuffer buffer(&bytes);
  image.save(&buffer, "PNG");
  return bytes.toStdString();
}

constexpr std::array kForms = {
#ifdef KORV_SVG
    PictureForm{"svg", SvgOf},
#endif
    PictureForm{"png", PngOf}};

}  // namespace

std::span<const PictureForm> PictureForms() {
  return kForms;
}

const PictureForm* PictureFormOfFile(const std::filesystem::path& path) {
  const std::string extension = LowerText(PathToText(path.extension()));
  for (const PictureForm& form : kForms)
    if (extension == std::string(".") + form.Extension) return &form;
  return extension == ".svg" ? nullptr : &kForms.back();
}

std::optional<FileError> WritePicture(FileSystem& files, const std::filesystem::path& path,
                                      const std::string& bytes) {
  auto file = files.OpenForWriting(path);
  if (!file) return file.Error();
  if (auto error = (*file)->Write(bytes)) return error;
  return (*file)->Commit();
}

}  // namespace korv
