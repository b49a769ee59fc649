#include "desktop/results/chip_row.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QToolButton>
#include <algorithm>
#include <utility>

#include "base/translation.h"
#include "desktop/toolkit/plain_tip.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/layouts.h"

namespace korv {
namespace {

constexpr size_t kMostButtons = 3;
constexpr int kWidestChip = 220;  // pixels

QString MoreText(size_t chips) {
  return QString(TrCount("%1 more", "%1 more", chips)).arg(chips);
}

}  // namespace

ChipRow::ChipRow(QWidget* parent) : QWidget(parent), row_(Bare(new QHBoxLayout(this))) {
  hide();
}

void ChipRow::ShowChips(std::vector<Chip> chips) {
  const bool same =
      std::equal(chips.begin(), chips.end(), chips_.begin(), chips_.end(),
                 [](const Chip& a, const Chip& b) { return a.Text == b.Text && a.Tip == b.Tip; });
  chips_ = std::move(chips);
  if (!same) Rebuild();
}

void ChipRow::Rebuild() {
  while (QLayoutItem* const item = row_->takeAt(0)) {
    QWidget* const button = item->widget();
    delete item;
    // It may be what has been pressed just now. Until then nobody is to find it.
    button->setObjectName(QString());
    button->hide();
    button->deleteLater();
  }
  const auto add = [this](const QString& name, const QString& text) {
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setText(text);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setEnabled(enabled_);
    row_->addWidget(button);
    return button;
  };
  for (size_t i = 0; i < std::min(kMostButtons, chips_.size()); ++i) {
    const QString text = ToQt(chips_[i].Text);
    const QString shown = fontMetrics().elidedText(text, Qt::ElideMiddle, kWidestChip);
    QToolButton* const button =
        add(QStringLiteral("cmdChip_%1").arg(i + 1),
            QString(shown).replace(u'&', QLatin1String("&&")) + QStringLiteral("  \u2715"));
    button->setToolTip(PlainTip(text + u'\n' + ToQt(chips_[i].Tip)));
    button->setAccessibleName(text);
    button->setAccessibleDescription(ToQt(chips_[i].Tip));
    connect(button, &QToolButton::clicked, this, [this, i] { Lift(i); });
  }
  if (chips_.size() > kMostButtons) {
    QToolButton* const more = add(QStringLiteral("cmdMoreChips"), MoreText(chips_.size() - kMostButtons));
    auto* menu = new QMenu(more);
    for (size_t i = kMostButtons; i < chips_.size(); ++i) {
      menu->addAction(ToQt(chips_[i].Text).replace(u'&', QLatin1String("&&")) + QStringLiteral("  \u2715"),
                      this, [this, i] { Lift(i); });
    }
    more->setMenu(menu);
    more->setPopupMode(QToolButton::InstantPopup);
    more->setToolTip(Tr("Further restrictions in force"));
  }
  setVisible(!chips_.empty());
}

void ChipRow::Lift(size_t chip) {
  // It may go while it acts.
  const std::function<void()> remove = chips_[chip].Remove;
  remove();
}

void ChipRow::EnableDisableButtons(bool enabled) {
  enabled_ = enabled;
  for (QToolButton* button : findChildren<QToolButton*>()) button->setEnabled(enabled);
}

}  // namespace korv
