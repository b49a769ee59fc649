#pragma once

#include <QGroupBox>
#include <array>
#include <functional>
#include <vector>

class QCheckBox;
class QGridLayout;

namespace korv {

class SettingsHost;

/// Which characters words may hold.
class AllowWordsPanel final : public QGroupBox {
 public:
  AllowWordsPanel(SettingsHost& host, QWidget* parent);
  ~AllowWordsPanel() override;

  QCheckBox* chkAllowWordsWithAmpersands = nullptr;
  QCheckBox* chkAllowWordsWithParentheses = nullptr;
  QCheckBox* chkAllowWordsWithCommas = nullptr;
  QCheckBox* chkAllowWordsWithAtSigns = nullptr;
  QCheckBox* chkAllowWordsWithHyphens = nullptr;
  QCheckBox* chkAllowWordsWithPeriods = nullptr;
  QCheckBox* chkAllowWordsWithForwardslashes = nullptr;
  QCheckBox* chkAllowWordsWithBackslashes = nullptr;
  QCheckBox* chkAllowWordsWithColons = nullptr;
  QCheckBox* chkAllowWordsWithUnderscores = nullptr;
  QCheckBox* chkAllowWordsWithNumerals = nullptr;
  QCheckBox* chkAllowWordsWithApostrophes = nullptr;
  QCheckBox* chkCaseSignificant = nullptr;
  QCheckBox* chkOnly7bitASCII = nullptr;

  std::function<void()> CharactersChanged = [] {};  ///< The user admits other characters into words.

  void chkCaseSignificant_Click();
  /// A box that admits characters into words was clicked.
  void chkAllowWords_Click(const QCheckBox& box);
  std::vector<QWidget*> TabOrder() const;

 private:
  /// The twelve boxes that admit characters into words, as they are read.
  std::array<QCheckBox*, 12> AllowWordsBoxes() const;
  void Build();
  void BuildFurtherRules(QGridLayout& layout);
  void Connect();
  /// Whether the user wants `box` to change although that discards the result; otherwise it is put back.
  bool ConfirmsRereading(const QCheckBox& box);

  SettingsHost& host_;
};

}  // namespace korv
