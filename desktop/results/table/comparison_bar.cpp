#include "desktop/results/table/comparison_bar.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QTabBar>

#include "base/translation.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/flow_layout.h"
#include "desktop/widgets/layouts.h"
#include "desktop/widgets/wiring.h"

namespace korv {

namespace {

struct TabText {
  KeyPhrases Which;
  const char* Caption;
  const char* Tip;
};

constexpr TabText kTabs[] = {
    {KeyPhrases::TypicalA, TrLater("Typical of A"),
     TrLater("Phrases that are more frequent in A, the largest difference first.")},
    {KeyPhrases::TypicalB, TrLater("Typical of B"),
     TrLater("Phrases that are more frequent in B, the largest difference first.")},
    {KeyPhrases::Shared, TrLater("Shared"),
     TrLater("Phrases that are about as frequent on both sides (log ratio between -0.5 and 0.5, BIC below "
             "-2), the most frequent first.")},
    {KeyPhrases::New, TrLater("New"), TrLater("Phrases that only A has.")},
    {KeyPhrases::Gone, TrLater("Gone"), TrLater("Phrases that only B has.")},
    {KeyPhrases::More, TrLater("More"), TrLater("Phrases of both that are more frequent in A.")},
    {KeyPhrases::Less, TrLater("Less"), TrLater("Phrases of both that are less frequent in A.")},
};

const TabText& TextOf(KeyPhrases which) {
  const TabText* text = kTabs;
  while (text->Which != which) ++text;
  return *text;
}

QString CaptionOf(KeyPhrases which) {
  return Tr(TextOf(which).Caption);
}

struct Choice {
  const char* Caption;
  const char* Tip;
};

// By KeyTest.
constexpr Choice kTests[] = {
    {TrLater("BIC 2 or more"), TrLater("Typical phrases have at least positive evidence of a difference.")},
    {TrLater("p at most 0.01 % (Sidak)"),
     TrLater("Typical phrases are those whose difference is significant, corrected for the number of phrases "
             "that are tested.")},
    {TrLater("No test"), TrLater("Typical phrases are all that are more frequent on one side.")},
};

// By ComparisonBasis.
constexpr Choice kBases[] = {
    {TrLater("by words"), TrLater("Occurrences are compared, against running words.")},
    {TrLater("by files"), TrLater("Files with the phrase are compared, against files with words.")},
    {TrLater("by occurrences in no longer phrase"),
     TrLater("Occurrences that stand in no longer phrase are compared, against running words.")},
};

template <size_t N>
void FillCombo(QComboBox& combo, const Choice (&choices)[N]) {
  combo.setSizeAdjustPolicy(QComboBox::AdjustToContents);
  for (const Choice& choice : choices) {
    combo.addItem(Tr(choice.Caption));
    combo.setItemData(combo.count() - 1, QString(Tr(choice.Tip)), Qt::ToolTipRole);
  }
  combo.setToolTip(Tr(choices[0].Tip));
}

}  // namespace

ComparisonBar::ComparisonBar(const Desktop& desktop, QWidget* parent) : QWidget(parent), desktop_(desktop) {
  tabSides = Described(Named(new QTabBar(this), "tabSides"), Tr("Phrases of the comparison"));
  tabSides->setDrawBase(false);
  tabSides->setExpanding(false);
  tabSides->setUsesScrollButtons(true);
  cboTest = MakeCombo("cboTest", Tr("Test that typical phrases pass"), this);
  cboBasis = MakeCombo("cboBasis", Tr("What is compared"), this);
  FillCombo(*cboTest, kTests);
  FillCombo(*cboBasis, kBases);
  fraTest_ = new QWidget(this);
  auto* test = Bare(new QHBoxLayout(fraTest_));
  test->addWidget(MakeCaption(Tr("&Test:"), cboTest, fraTest_));
  test->addWidget(cboTest);
  auto* layout = new FlowLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(tabSides);
  layout->addWidget(fraTest_);
  layout->addWidget(cboBasis);
  Use(true, ComparisonBasis::Words);
  Use(false, ComparisonBasis::Words);
  Connect();
}

ComparisonBar::~ComparisonBar() {
  StopListening(*this);
}

void ComparisonBar::Connect() {
  const Wiring wiring(*this, desktop_.Messages);
  connect(tabSides, &QTabBar::currentChanged, this,
          Guarded(desktop_.Messages, "tabSides_Click", [this] { TabChosen(); }));
  wiring.OnChoice(cboTest, "cboTest_Click", [this] {
    cboTest->setToolTip(Tr(kTests[cboTest->currentIndex()].Tip));
    TestChosen();
  });
  wiring.OnChoice(cboBasis, "cboBasis_Click", [this] {
    cboBasis->setToolTip(Tr(kBases[cboBasis->currentIndex()].Tip));
    BasisChosen();
  });
}

void ComparisonBar::Use(bool drafts, ComparisonBasis basis) {
  const QSignalBlocker byTheProgram(tabSides);
  const QSignalBlocker alsoThis(cboBasis);
  cboBasis->setCurrentIndex(static_cast<int>(basis));
  cboBasis->setToolTip(Tr(kBases[cboBasis->currentIndex()].Tip));
  fraTest_->setVisible(!drafts);
  if (drafts_ == drafts && tabSides->count() > 0) return;
  drafts_ = drafts;
  while (tabSides->count() > 0) tabSides->removeTab(0);
  for (const KeyPhrases which : KeyTablesOf(drafts))
    tabSides->setTabToolTip(tabSides->addTab(CaptionOf(which)), Tr(TextOf(which).Tip));
}

void ComparisonBar::ShowCounts(const KeyTabs* tabs) {
  const auto tables = KeyTablesOf(drafts_);
  for (int k = 0; k < tabSides->count(); ++k) {
    const KeyPhrases which = tables[static_cast<size_t>(k)];
    const QString caption = CaptionOf(which);
    tabSides->setTabText(
        k, tabs ? QStringLiteral("%1 (%2)").arg(caption, ToQt(desktop_.Numbers.Grouped(tabs->Phrases(which))))
                : caption);
  }
}

KeyTab ComparisonBar::Tab() const {
  return {KeyTablesOf(drafts_)[static_cast<size_t>(tabSides->currentIndex())],
          KeyTest{cboTest->currentIndex()}};
}

ComparisonBasis ComparisonBar::Basis() const {
  return ComparisonBasis{cboBasis->currentIndex()};
}

std::vector<QWidget*> ComparisonBar::TabOrder() const {
  return {tabSides, cboTest, cboBasis};
}

}  // namespace korv
