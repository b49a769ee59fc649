#include "desktop/main_window/recent_sources.h"

#include <QSettings>

namespace korv {
namespace {

constexpr qsizetype kMost = 10;

}  // namespace

RecentSources::RecentSources(QSettings& store, const char* key) : store_(store), key_(QLatin1String(key)) {}

QStringList RecentSources::Paths() const {
  return store_.value(key_).toStringList().mid(0, kMost);
}

void RecentSources::Add(const QString& path) {
  if (path.isEmpty()) return;
  QStringList paths = Paths();
  paths.removeAll(path);
  paths.prepend(path);
  store_.setValue(key_, paths.mid(0, kMost));
  if (Changed) Changed();
}

void RecentSources::Clear() {
  store_.remove(key_);
  if (Changed) Changed();
}

}  // namespace korv
