#include "desktop/results/contexts/context_options.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QSettings>
#include <QSpinBox>
#include <algorithm>
#include <random>

#include "app/contexts/context_rows.h"
#include "base/translation.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/layouts.h"
#include "desktop/widgets/wiring.h"

namespace korv {

namespace {

constexpr const char* kOrderKey = "contexts/order";
constexpr const char* kFilesKey = "contexts/file_by_file";
constexpr const char* kWidthKey = "contexts/width";

QString Key(const char* key) {
  return QLatin1String(key);
}

}  // namespace

ContextOptions::ContextOptions(const Desktop& desktop, QWidget* parent) : QWidget(parent), desktop_(desktop) {
  auto* layout = Bare(new QHBoxLayout(this));
  cboContextOrder = MakeCombo("cboContextOrder", Tr("Order of the contexts"), this);
  cboContextOrder->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  // In the order of PlaceOrder.
  cboContextOrder->addItems({Tr("As in the text"), Tr("By the words to the left"),
                             Tr("By the words to the right"), Tr("By file name")});
  chkContextFiles = MakeCheckBox("chkContextFiles", Tr("File by file"), this);
  chkContextFiles->setToolTip(Tr("Contexts of each file below its name"));
  chkContextSample = MakeCheckBox("chkContextSample", Tr("Random 1,000"), this);
  chkContextSample->setToolTip(Tr("Show 1,000 of the occurrences, drawn at random"));
  spbContextWidth = Described(Named(new QSpinBox(this), "spbContextWidth"), Tr("Characters on each side"));
  spbContextWidth->setRange(kLeastContext, kMostContext);
  spbContextWidth->setSingleStep(20);
  // Translators: stands behind a number.
  spbContextWidth->setSuffix(QStringLiteral(" ") + Tr("characters"));
  spbContextWidth->setToolTip(Tr("Characters on each side of the phrase, 20 to 500"));
  spbContextWidth->setKeyboardTracking(false);
  for (QWidget* control : TabOrder()) layout->addWidget(control);
  layout->addStretch(1);
  Restore();
  Connect();
}

ContextOptions::~ContextOptions() {
  StopListening(*this);
}

void ContextOptions::Restore() {
  const QSettings& store = desktop_.Store;
  cboContextOrder->setCurrentIndex(
      std::clamp(store.value(Key(kOrderKey)).toInt(), 0, cboContextOrder->count() - 1));
  chkContextFiles->setChecked(store.value(Key(kFilesKey)).toBool());
  spbContextWidth->setValue(store.value(Key(kWidthKey), kUsualContext).toInt());
}

void ContextOptions::Connect() {
  const Wiring wiring(*this, desktop_.Messages);
  wiring.OnChoice(cboContextOrder, "cboContextOrder_Click", [this] {
    desktop_.Store.setValue(Key(kOrderKey), cboContextOrder->currentIndex());
    QueryChanged();
  });
  wiring.OnToggle(chkContextFiles, "chkContextFiles_Click", [this] {
    desktop_.Store.setValue(Key(kFilesKey), chkContextFiles->isChecked());
    QueryChanged();
  });
  wiring.OnToggle(chkContextSample, "chkContextSample_Click", [this] {
    seed_.reset();
    if (chkContextSample->isChecked()) seed_ = std::random_device()() % 10'000;
    QueryChanged();
  });
  connect(spbContextWidth, &QSpinBox::valueChanged, this,
          Guarded(desktop_.Messages, "spbContextWidth_Change", [this] {
            desktop_.Store.setValue(Key(kWidthKey), spbContextWidth->value());
            WidthChanged();
          }));
}

ContextQuery ContextOptions::Query() const {
  return {.Order = static_cast<PlaceOrder>(cboContextOrder->currentIndex()),
          .FileByFile = chkContextFiles->isChecked(),
          .SampleSeed = seed_};
}

size_t ContextOptions::Width() const {
  return static_cast<size_t>(spbContextWidth->value());
}

std::vector<QWidget*> ContextOptions::TabOrder() const {
  return {cboContextOrder, chkContextFiles, chkContextSample, spbContextWidth};
}

}  // namespace korv
