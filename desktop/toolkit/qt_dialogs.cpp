#include "desktop/toolkit/qt_dialogs.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

#include "desktop/toolkit/text.h"

namespace korv {
namespace {

/// "Any text file (*.*) | *.*" as the toolkit's "Any text file (*)": there "*.*" would hide names
/// without a dot.
QString NameFilter(const std::string& filter) {
  const QString text = ToQt(filter);
  const qsizetype bar = text.indexOf(u'|');
  if (bar < 0) return text;
  QString name = text.left(bar).trimmed();
  QString pattern = text.mid(bar + 1).trimmed();
  if (const qsizetype open = name.lastIndexOf(u'('); open > 0) name = name.left(open).trimmed();
  if (pattern == QLatin1String("*.*")) pattern = QStringLiteral("*");
  return name + QStringLiteral(" (") + pattern + u')';
}

std::optional<std::string> Chosen(const QString& path) {
  if (path.isEmpty()) return std::nullopt;
  return FromQt(QDir::toNativeSeparators(path));
}

}  // namespace

std::optional<std::string> QtDialogs::ChooseFileToOpen(const FileChoice& choice) {
  return Chosen(QFileDialog::getOpenFileName(QApplication::activeWindow(), ToQt(choice.Title),
                                             ToQt(choice.InitialPath), NameFilter(choice.Filter)));
}

std::optional<std::string> QtDialogs::ChooseFileToSave(const FileChoice& choice) {
  QFileDialog dialog(QApplication::activeWindow(), ToQt(choice.Title), {}, NameFilter(choice.Filter));
  dialog.setObjectName(QStringLiteral("saveDialog"));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setOption(QFileDialog::DontConfirmOverwrite, !choice.AsksBeforeReplacing);
  dialog.setDefaultSuffix(ToQt(choice.Extension));
  const QFileInfo initial(ToQt(choice.InitialPath));
  if (initial.isDir()) {
    dialog.setDirectory(initial.filePath());
  } else if (!choice.InitialPath.empty()) {
    dialog.setDirectory(initial.path());
    dialog.selectFile(initial.fileName());
  }
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return Chosen(dialog.selectedFiles().value(0));
}

std::optional<std::string> QtDialogs::ChooseFolder(const std::string& title, const std::string& initialPath) {
  return Chosen(
      QFileDialog::getExistingDirectory(QApplication::activeWindow(), ToQt(title), ToQt(initialPath)));
}

}  // namespace korv
