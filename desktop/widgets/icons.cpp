#include "desktop/widgets/icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <utility>

#include "desktop/widgets/outline.h"

// A library's resources are not there until somebody asks for them, which the toolkit wants done outside of
// any namespace.
static void MakeIconsKnown() {
  Q_INIT_RESOURCE(icons);
}

namespace korv {
namespace {

/// Draws black outlines in the colour that the role has at that moment.
class OutlineEngine final : public QIconEngine {
 public:
  OutlineEngine(QByteArray drawing, QPalette::ColorRole role) : drawing_(std::move(drawing)), role_(role) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override {
    PaintOutline(drawing_, ColourOf(mode), *painter, rect);
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, {QPoint(0, 0), size}, mode, state);
    return picture;
  }
  QIconEngine* clone() const override { return new OutlineEngine(drawing_, role_); }

 private:
  QColor ColourOf(QIcon::Mode mode) const {
    const QPalette palette = QGuiApplication::palette();
    if (mode == QIcon::Disabled) return palette.color(QPalette::Disabled, QPalette::WindowText);
    return palette.color(QPalette::Active, mode == QIcon::Selected ? QPalette::HighlightedText : role_);
  }

  QByteArray drawing_;
  QPalette::ColorRole role_;
};

}  // namespace

QIcon DrawnIcon(const char* name, QPalette::ColorRole role) {
  MakeIconsKnown();
  QFile file(QStringLiteral(":/korv/icons/%1").arg(QLatin1String(name)));
  return file.open(QIODevice::ReadOnly) ? QIcon(new OutlineEngine(file.readAll(), role)) : QIcon();
}

QIcon NamedIcon(const char* name) {
  const QString named = QLatin1String(name);
  return QIcon::hasThemeIcon(named) ? QIcon::fromTheme(named) : DrawnIcon(name);
}

}  // namespace korv
