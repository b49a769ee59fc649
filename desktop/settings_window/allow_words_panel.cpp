#include "desktop/settings_window/allow_words_panel.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <algorithm>

#include "desktop/questions.h"
#include "desktop/settings_window/check_value.h"
#include "desktop/settings_window/rule_box.h"
#include "desktop/settings_window/settings_host.h"
#include "desktop/widgets/layouts.h"
#include "desktop/widgets/wiring.h"

namespace korv {
namespace {

using P = AllowWordsPanel;
using R = WordRules;

struct Row {
  QCheckBox* P::*Box;
  const char* Name;
  const char* Caption;
  RuleExample Example;
};

constexpr Row kCharacters[] = {
    {&P::chkAllowWordsWithAmpersands,
     "chkAllowWordsWithAmpersands",
     "ampersand &&",
     {&R::AllowAmpersands, "An ampersand may stand in a word.", "R&D"}},
    {&P::chkAllowWordsWithParentheses,
     "chkAllowWordsWithParentheses",
     "parentheses ( )",
     {&R::AllowParentheses, "Parentheses may stand in a word.", "word(s)"}},
    {&P::chkAllowWordsWithCommas,
     "chkAllowWordsWithCommas",
     "comma ,",
     {&R::AllowCommas, "A comma may stand within a word.", "red,green"}},
    {&P::chkAllowWordsWithAtSigns,
     "chkAllowWordsWithAtSigns",
     "at-sign @",
     {&R::AllowAtSigns, "An at-sign may stand in a word.", "me@home"}},
    {&P::chkAllowWordsWithHyphens,
     "chkAllowWordsWithHyphens",
     "hyphen -",
     {&R::AllowHyphens, "A hyphen may stand within a word.", "stop-loss"}},
    {&P::chkAllowWordsWithPeriods,
     "chkAllowWordsWithPeriods",
     "period .",
     {&R::AllowPeriods, "A period may stand within a word.", "example.org"}},
    {&P::chkAllowWordsWithForwardslashes,
     "chkAllowWordsWithForwardslashes",
     "forward slash /",
     {&R::AllowForwardslashes, "A forward slash may stand in a word.", "and/or"}},
    {&P::chkAllowWordsWithBackslashes,
     "chkAllowWordsWithBackslashes",
     "backslash \\",
     {&R::AllowBackslashes, "A backslash may stand in a word.", "in\\out"}},
    {&P::chkAllowWordsWithColons,
     "chkAllowWordsWithColons",
     "colon :",
     {&R::AllowColons, "A colon may stand in a word.", "std:sort"}},
    {&P::chkAllowWordsWithUnderscores,
     "chkAllowWordsWithUnderscores",
     "underscore _",
     {&R::AllowUnderscores, "An underscore may stand in a word.", "my_file"}},
    {&P::chkAllowWordsWithNumerals,
     "chkAllowWordsWithNumerals",
     "numerals 123",
     {&R::AllowNumerals, "Numerals may stand in a word.", "MP3 player"}},
    {&P::chkAllowWordsWithApostrophes,
     "chkAllowWordsWithApostrophes",
     "apostrophe '",
     {&R::AllowApostrophes,
      "An apostrophe may stand within a word. The endings of Tom's and isn't belong to their word in any "
      "case.",
      "rock'n'roll"}},
};

}  // namespace

AllowWordsPanel::AllowWordsPanel(SettingsHost& host, QWidget* parent)
    : QGroupBox(QStringLiteral("Allow 'words' with:"), parent), host_(host) {
  setObjectName(QStringLiteral("fraAllowWords"));
  Build();
  Connect();
}

AllowWordsPanel::~AllowWordsPanel() {
  StopListening(*this);
}

void AllowWordsPanel::Build() {
  auto* layout = Tight(new QGridLayout(this), kSettingsMargins);
  int place = 0;
  for (const Row& row : kCharacters) {
    this->*row.Box = MakeRuleBox(row.Name, row.Caption, row.Example, this);
    layout->addWidget(this->*row.Box, place % 6, place / 6);
    ++place;
  }
  BuildFurtherRules(*layout);
  layout->setRowStretch(10, 1);
}

void AllowWordsPanel::BuildFurtherRules(QGridLayout& layout) {
  chkCaseSignificant = MakeRuleBox(
      "chkCaseSignificant", "Upper/lower case significant",
      {&R::CaseSignificant, "Words that differ in upper and lower case are different words.", "May may"},
      this);
  chkOnly7bitASCII = MakeRuleBox(
      "chkOnly7bitASCII", "Allow only 7-bit ASCII characters",
      {&R::Only7bitASCII, "Words with any other letter than a to z are not counted.", "cafe caf\xC3\xA9"},
      this);
  layout.setRowMinimumHeight(6, 4);
  layout.addWidget(new QLabel(QStringLiteral("Also:"), this), 7, 0, 1, 2);
  layout.addWidget(chkCaseSignificant, 8, 0, 1, 2);
  layout.addWidget(chkOnly7bitASCII, 9, 0, 1, 2);
}

void AllowWordsPanel::Connect() {
  const Wiring wiring(*this, host_.Outside().Messages);
  wiring.OnClick(chkCaseSignificant, "chkCaseSignificant_Click", [this] { chkCaseSignificant_Click(); });
  for (QCheckBox* box : AllowWordsBoxes()) {
    wiring.OnClick(box, "chkAllowWordsWith_Click", [this, box] { chkAllowWords_Click(*box); });
  }
}

void AllowWordsPanel::chkCaseSignificant_Click() {
  ConfirmsRereading(*chkCaseSignificant);
}

void AllowWordsPanel::chkAllowWords_Click(const QCheckBox& box) {
  if (ConfirmsRereading(box)) CharactersChanged();
}

bool AllowWordsPanel::ConfirmsRereading(const QCheckBox& box) {
  Workspace& work = host_.Work();
  const CheckValue& value = ValueOf(box);
  Settings before = work.Current();
  value.Set(before, !box.isChecked());
  // One that was counted under other rules is marked already, and would be counted anew anyway.
  if (!host_.ResultKeepsTo(before.Words)) return true;
  std::string what = "clipboard";
  if (before.SourceKind == TextSource::SingleFile) what = "file";
  if (before.SourceKind == TextSource::Folder) what = "files";
  if (host_.Outside().Messages.Show(
          {.Text = "Changing this entails reading the " + what + " anew.  Is this OK?",
           .Title = "Word rules",
           .Icon = Icon::Question,
           .Buttons = Buttons::YesNo,
           .DefaultAnswer = Answer::Yes,
           .Question = questions::kRereadSource}) == Answer::Yes)
    return true;
  const bool checked = value.Get(before);
  work.Change(ChangedBy::Program, [&](Settings& settings) { value.Set(settings, checked); });
  return false;
}

std::array<QCheckBox*, 12> AllowWordsPanel::AllowWordsBoxes() const {
  std::array<QCheckBox*, 12> boxes{};
  std::ranges::transform(kCharacters, boxes.begin(), [this](const Row& row) { return this->*row.Box; });
  return boxes;
}

std::vector<QWidget*> AllowWordsPanel::TabOrder() const {
  const auto boxes = AllowWordsBoxes();
  std::vector<QWidget*> order(boxes.begin(), boxes.end());
  order.insert(order.end(), {chkCaseSignificant, chkOnly7bitASCII});
  return order;
}

}  // namespace korv
