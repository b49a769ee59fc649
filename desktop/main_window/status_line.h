#pragma once

#include <QStatusBar>
#include <cstdint>
#include <string>

#include "base/number_format.h"

class QLabel;

namespace korv {

/// The fields of the main window's status line.
class StatusLine final : public QStatusBar {
 public:
  /// `numbers` has to outlive this.
  StatusLine(const NumberFormat& numbers, QWidget* parent);

  QLabel* lblStatusText = nullptr;
  QLabel* lblStatusEncoding = nullptr;
  QLabel* lblStatusFiles = nullptr;
  QLabel* lblStatusWords = nullptr;
  QLabel* lblStatusPhrases = nullptr;
  QLabel* lblStatusMemory = nullptr;

  /// What is being done; empty when nothing is.
  void ShowText(const QString& text);
  /// 0 files are not shown: there is one text.
  void ShowCounts(uint64_t files, uint64_t words, uint64_t phrases);
  /// "3 files in 2 folders"
  void ShowFiles(const std::string& text);
  /// Of which encoding the texts were; an empty text hides the field.
  void ShowEncoding(const std::string& text);
  /// Which memory the finished runs take, in bytes. One alone is no news.
  void ShowMemory(size_t runs, uint64_t bytes);
  /// Hides the fields about a result.
  void HideCounts();

 private:
  const NumberFormat& numbers_;
};

}  // namespace korv
