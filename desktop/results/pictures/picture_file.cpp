#include "desktop/results/pictures/picture_file.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QSvgGenerator>

#include "engine/text/unicode.h"

namespace korv {
namespace {

constexpr double kDotsPerUnit = 2;
constexpr int kResolution = 96;  // dots per inch: a unit of the screen is one of an SVG

QByteArray SvgOf(const Picture& picture, const PictureStyle& style, const QSizeF& size) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QSvgGenerator svg;
  svg.setOutputDevice(&buffer);
  svg.setResolution(kResolution);
  svg.setSize(size.toSize());
  svg.setViewBox(QRectF(QPointF(), size));
  svg.setTitle(picture.Title());
  svg.setDescription(picture.Description());
  QPainter painter(&svg);
  painter.setFont(style.Font);
  PaintWhole(picture, painter, QRectF(QPointF(), size), style);
  painter.end();
  return buffer.data();
}

QByteArray PngOf(const Picture& picture, const PictureStyle& style, const QSizeF& size) {
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
  return bytes;
}

}  // namespace

PictureForm PictureFormOfFile(const std::filesystem::path& path) {
  return LowerText(PathToText(path.extension())) == ".svg" ? PictureForm::Svg : PictureForm::Png;
}

std::string PictureBytes(const Picture& picture, const PictureStyle& style, const QSizeF& size,
                         PictureForm form) {
  return (form == PictureForm::Svg ? SvgOf(picture, style, size) : PngOf(picture, style, size)).toStdString();
}

std::optional<FileError> WritePicture(FileSystem& files, const std::filesystem::path& path,
                                      const std::string& bytes) {
  auto file = files.OpenForWriting(path);
  if (!file) return file.Error();
  if (auto error = (*file)->Write(bytes)) return error;
  return (*file)->Commit();
}

}  // namespace korv
