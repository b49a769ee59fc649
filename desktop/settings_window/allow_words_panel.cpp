#include "desktop/settings_window/allow_words_panel.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <algorithm>

#include "base/translation.h"
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
  bool R::*Rule;
  const char* What;
  const char* Example;
};

constexpr Row kCharacters[] = {
    {&P::chkAllowWordsWithAmpersands, "chkAllowWordsWithAmpersands", TrLater("ampersand &&"),
     &R::AllowAmpersands, TrLater("An ampersand may stand in a word."), "R&D"},
    {&P::chkAllowWordsWithParentheses, "chkAllowWordsWithParentheses", TrLater("parentheses ( )"),
     &R::AllowParentheses, TrLater("Parentheses may stand in a word."), "word(s)"},
    {&P::chkAllowWordsWithCommas, "chkAllowWordsWithCommas", TrLater("comma ,"), &R::AllowCommas,
     TrLater("A comma may stand within a word."), "red,green"},
    {&P::chkAllowWordsWithAtSigns, "chkAllowWordsWithAtSigns", TrLater("at-sign @"), &R::AllowAtSigns,
     TrLater("An at-sign may stand in a word."), "me@home"},
    {&P::chkAllowWordsWithHyphens, "chkAllowWordsWithHyphens", TrLater("hyphen -"), &R::AllowHyphens,
     TrLater("A hyphen may stand within a word."), "stop-loss"},
    {&P::chkAllowWordsWithPeriods, "chkAllowWordsWithPeriods", TrLater("period ."), &R::AllowPeriods,
     TrLater("A period may stand within a word."), "example.org"},
    {&P::chkAllowWordsWithForwardslashes, "chkAllowWordsWithForwardslashes", TrLater("forward slash /"),
     &R::AllowForwardslashes, TrLater("A forward slash may stand in a word."), "and/or"},
    {&P::chkAllowWordsWithBackslashes, "chkAllowWordsWithBackslashes", TrLater("backslash \\"),
     &R::AllowBackslashes, TrLater("A backslash may stand in a word."), "in\\out"},
    {&P::chkAllowWordsWithColons, "chkAllowWordsWithColons", TrLater("colon :"), &R::AllowColons,
     TrLater("A colon may stand in a word."), "std:sort"},
    {&P::chkAllowWordsWithUnderscores, "chkAllowWordsWithUnderscores", TrLater("underscore _"),
     &R::AllowUnderscores, TrLater("An underscore may stand in a word."), "my_file"},
    {&P::chkAllowWordsWithNumerals, "chkAllowWordsWithNumerals", TrLater("numerals 123"), &R::AllowNumerals,
     TrLater("Numerals may stand in a word."), "MP3 player"},
    {&P::chkAllowWordsWithApostrophes, "chkAllowWordsWithApostrophes", TrLater("apostrophe '"),
     &R::AllowApostrophes,
     TrLater(
         "An apostrophe may stand within a word. The endings of Tom's and isn't belong to their word in any "
         "case."),
     "rock'n'roll"},
};

const char* RereadingText(TextSource source) {
  switch (source) {
    case TextSource::SingleFile:
      return Tr("Changing this entails reading the file anew.  Is this OK?");
    case TextSource::Folder:
      return Tr("Changing this entails reading the files anew.  Is this OK?");
    case TextSource::Clipboard:
      break;
  }
  return Tr("Changing this entails reading the clipboard anew.  Is this OK?");
}

}  // namespace

AllowWordsPanel::AllowWordsPanel(SettingsHost& host, QWidget* parent)
    : QGroupBox(Tr("Allow 'words' with:"), parent), host_(host) {
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
    this->*row.Box = MakeRuleBox(row.Name, Tr(row.Caption), {row.Rule, Tr(row.What), row.Example}, this);
    layout->addWidget(this->*row.Box, place % 6, place / 6);
    ++place;
  }
  BuildFurtherRules(*layout);
  layout->setRowStretch(10, 1);
}

void AllowWordsPanel::BuildFurtherRules(QGridLayout& layout) {
  chkCaseSignificant = MakeRuleBox(
      "chkCaseSignificant", Tr("Upper/lower case significant"),
      {&R::CaseSignificant, Tr("Words that differ in upper and lower case are different words."), "May may"},
      this);
  chkOnly7bitASCII = MakeRuleBox(
      "chkOnly7bitASCII", Tr("Allow only 7-bit ASCII characters"),
      {&R::Only7bitASCII, Tr("Words with any other letter than a to z are not counted."), "cafe caf\xC3\xA9"},
      this);
  layout.setRowMinimumHeight(6, 4);
  layout.addWidget(new QLabel(Tr("Also:"), this), 7, 0, 1, 2);
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
  if (host_.Outside().Messages.Show({.Text = RereadingText(before.SourceKind),
                                     .Title = Tr("Word rules"),
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
