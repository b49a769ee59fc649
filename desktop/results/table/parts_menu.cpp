#include "desktop/results/table/parts_menu.h"

#include <QActionGroup>
#include <QMenu>
#include <QSettings>
#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "desktop/toolkit/text.h"

namespace korv {

namespace {

constexpr const char* kPartsKey = "table/parts";
constexpr std::array kOffered = {5, 10, 20, 50, 100};
constexpr int kUsual = 10;

bool IsNumberOfParts(int number) {
  return number >= PartChoice::kLeastEqual && number <= PartChoice::kMostEqual;
}

/// The user's number; nothing where the user gives none.
std::optional<int> AskNumber(PartChoice now, Messages& messages) {
  const int initial = now.Equal == PartChoice::kFiles ? kUsual : now.Equal;
  const auto typed = messages.AskText(
      "Number of equal parts of the whole text (2 to 100):", "Parts of the text", std::to_string(initial));
  if (!typed) return std::nullopt;
  bool isNumber = false;
  const int number = ToQt(*typed).trimmed().toInt(&isNumber);
  if (isNumber && IsNumberOfParts(number)) return number;
  messages.Show({.Text = "The number of parts is one from 2 to 100.", .Title = "Parts of the text"});
  return std::nullopt;
}

}  // namespace

PartChoice KeptParts(const QSettings& store) {
  const int kept = store.value(QLatin1String(kPartsKey), PartChoice::kFiles).toInt();
  return {IsNumberOfParts(kept) ? kept : PartChoice::kFiles};
}

void KeepParts(QSettings& store, PartChoice parts) {
  store.setValue(QLatin1String(kPartsKey), parts.Equal);
}

void FillPartsMenu(QMenu& menu, PartChoice now, Messages& messages,
                   const std::function<void(PartChoice)>& choose) {
  auto* group = new QActionGroup(&menu);
  const auto add = [&](const QString& caption, const QString& name, bool checked, auto act) {
    QAction* const action = menu.addAction(caption, act);
    action->setObjectName(QLatin1String("mnuParts_") + name);
    action->setCheckable(true);
    action->setChecked(checked);
    group->addAction(action);
    return action;
  };
  add(QStringLiteral("&Files"), QStringLiteral("files"), now.Equal == PartChoice::kFiles, [choose] {
    choose({PartChoice::kFiles});
  })->setToolTip(QStringLiteral("A single file is divided into equal parts."));
  for (const int parts : kOffered)
    add(QStringLiteral("%1 equal parts of the whole").arg(parts), QString::number(parts), now.Equal == parts,
        [choose, parts] { choose({parts}); });
  const bool other =
      now.Equal != PartChoice::kFiles && std::ranges::find(kOffered, now.Equal) == kOffered.end();
  add(other ? QStringLiteral("&Other number of equal parts (%1)…").arg(now.Equal)
            : QStringLiteral("&Other number of equal parts…"),
      QStringLiteral("other"), other, [choose, now, &messages] {
        if (const auto number = AskNumber(now, messages)) choose({*number});
      });
  menu.setToolTipsVisible(true);
}

}  // namespace korv
