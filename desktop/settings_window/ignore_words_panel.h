#pragma once

#include <QGroupBox>
#include <vector>

class QCheckBox;
class QComboBox;

namespace korv {

/// Which words are ignored for their form.
class IgnoreWordsPanel final : public QGroupBox {
 public:
  explicit IgnoreWordsPanel(QWidget* parent);

  QCheckBox* chkIgnoreShortWords = nullptr;
  QComboBox* cboShortWordSize = nullptr;
  QComboBox* cboLongWordSize = nullptr;
  QCheckBox* chkIgnoreRepetitions = nullptr;
  QCheckBox* chkIgnoreNoLetter = nullptr;

  /// Puts the items into the lists of sizes.
  void FillLists();
  /// The size lists are in use only while their rule is.
  void EnableWordSizes();
  std::vector<QWidget*> TabOrder() const;

 private:
  void MakeRules();
  void MakeSizes();
};

}  // namespace korv
