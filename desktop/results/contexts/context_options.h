#pragma once

#include <QWidget>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "app/contexts/context_list.h"
#include "desktop/desktop.h"

class QCheckBox;
class QComboBox;
class QSpinBox;

namespace korv {

/// In which order contexts are listed, how many of them, and how wide. Kept in the store, but for the sample.
class ContextOptions final : public QWidget {
 public:
  ContextOptions(const Desktop& desktop, QWidget* parent);
  ~ContextOptions() override;

  QComboBox* cboContextOrder = nullptr;
  QCheckBox* chkContextFiles = nullptr;   ///< File by file.
  QCheckBox* chkContextSample = nullptr;  ///< A random sample.
  QSpinBox* spbContextWidth = nullptr;    ///< Characters on each side.

  std::function<void()> QueryChanged = [] {};
  std::function<void()> WidthChanged = [] {};

  /// What they say about which contexts are listed, and how. The words are the caller's.
  ContextQuery Query() const;
  size_t Width() const;
  std::vector<QWidget*> TabOrder() const;

 private:
  void Restore();
  void Connect();

  const Desktop& desktop_;
  std::optional<uint64_t> seed_;  ///< Of the sample; another one each time that it is wished for.
};

}  // namespace korv
