#pragma once

#include <QStringList>
#include <functional>

class QSettings;

namespace korv {

/// The files or folders that were counted last, newest first, at most ten. Kept in the toolkit's store.
class RecentSources {
 public:
  RecentSources(QSettings& store, const char* key);

  QStringList Paths() const;
  /// Puts `path` at the top; an empty path is ignored.
  void Add(const QString& path);
  void Clear();

  std::function<void()> Changed;  ///< Called after every change; may be empty.

 private:
  QSettings& store_;
  QString key_;
};

}  // namespace korv
