#include "desktop/results/table/parts_menu.h"

#include <QActionGroup>
#include <QMenu>
#include <QSettings>
#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <string>

#include "base/translation.h"
#include "desktop/toolkit/text.h"

namespace korv {

namespace {

constexpr const char* kPartsKey = "table/parts";
constexpr const char* kOfEachFileKey = "table/partsOfEachFile";
constexpr std::array kOfferedOfTheWhole = {5, 10, 20, 50, 100};
constexpr std::array kOfferedOfEachFile = {5, 10};
constexpr int kUsual = 10;

/// What the menu says of equal parts of the whole, or of each file. "%1" is their number.
struct EqualPartsTexts {
  bool OfEachFile;
  std::span<const int> Offered;
  const char* Offer;
  const char* Other;
  const char* OtherChosen;
  const char* Prompt;
  const char* NameEnd;  ///< Of the entries' names, behind the number or "other".
};

constexpr EqualPartsTexts kOfTheWhole = {false,
                                         kOfferedOfTheWhole,
                                         TrLater("%1 equal parts of the whole"),
                                         TrLater("&Other number of equal parts\u2026"),
                                         TrLater("&Other number of equal parts (%1)\u2026"),
                                         TrLater("Number of equal parts of the whole text (2 to 100):"),
                                         ""};
constexpr EqualPartsTexts kOfEachFile = {true,
                                         kOfferedOfEachFile,
                                         TrLater("%1 equal parts of each file"),
                                         TrLater("Other number of equal parts of &each file\u2026"),
                                         TrLater("Other number of equal parts of &each file (%1)\u2026"),
                                         TrLater("Number of equal parts of each file (2 to 100):"),
                                         "_of_each_file"};

bool IsNumberOfParts(int number) {
  return number >= PartChoice::kLeastEqual && number <= PartChoice::kMostEqual;
}

/// The user's number; nothing where the user gives none.
std::optional<int> AskNumber(const char* prompt, int initial, Messages& messages) {
  const auto typed = messages.AskText(prompt, Tr("Parts of the text"), std::to_string(initial));
  if (!typed) return std::nullopt;
  bool isNumber = false;
  const int number = ToQt(*typed).trimmed().toInt(&isNumber);
  if (isNumber && IsNumberOfParts(number)) return number;
  messages.Show({.Text = Tr("The number of parts is one from 2 to 100."), .Title = Tr("Parts of the text")});
  return std::nullopt;
}

QAction* AddEntry(QMenu& menu, QActionGroup& group, const QString& caption, const QString& name,
                  bool checked) {
  QAction* const action = menu.addAction(caption);
  action->setObjectName(QLatin1String("mnuParts_") + name);
  action->setCheckable(true);
  action->setChecked(checked);
  group.addAction(action);
  return action;
}

void AddEqualParts(const EqualPartsTexts& texts, QMenu& menu, QActionGroup& group, PartChoice now,
                   Messages& messages, const std::function<void(PartChoice)>& choose) {
  const bool such = now.Equal != PartChoice::kFiles && now.OfEachFile == texts.OfEachFile;
  const QLatin1String nameEnd(texts.NameEnd);
  bool isOffered = false;
  for (const int parts : texts.Offered) {
    const bool chosen = such && now.Equal == parts;
    isOffered = isOffered || chosen;
    QAction* const action =
        AddEntry(menu, group, QString(Tr(texts.Offer)).arg(parts), QString::number(parts) + nameEnd, chosen);
    QObject::connect(action, &QAction::triggered, &menu, [choose, parts, &texts] {
      choose({parts, texts.OfEachFile});
    });
  }
  const bool other = such && !isOffered;
  QAction* const action =
      AddEntry(menu, group, other ? QString(Tr(texts.OtherChosen)).arg(now.Equal) : Tr(texts.Other),
               QLatin1String("other") + nameEnd, other);
  const int initial = such ? now.Equal : kUsual;
  QObject::connect(action, &QAction::triggered, &menu, [choose, initial, &texts, &messages] {
    if (const auto number = AskNumber(Tr(texts.Prompt), initial, messages))
      choose({*number, texts.OfEachFile});
  });
}

}  // namespace

PartChoice KeptParts(const QSettings& store) {
  const int kept = store.value(QLatin1String(kPartsKey), PartChoice::kFiles).toInt();
  if (!IsNumberOfParts(kept)) return {};
  return {kept, store.value(QLatin1String(kOfEachFileKey), false).toBool()};
}

void KeepParts(QSettings& store, PartChoice parts) {
  store.setValue(QLatin1String(kPartsKey), parts.Equal);
  store.setValue(QLatin1String(kOfEachFileKey), parts.OfEachFile);
}

void FillPartsMenu(QMenu& menu, PartChoice now, Messages& messages,
                   const std::function<void(PartChoice)>& choose) {
  auto* group = new QActionGroup(&menu);
  QAction* const files =
      AddEntry(menu, *group, Tr("&Files"), QStringLiteral("files"), now.Equal == PartChoice::kFiles);
  files->setToolTip(Tr("A single file is divided into equal parts."));
  QObject::connect(files, &QAction::triggered, &menu, [choose] { choose({PartChoice::kFiles}); });
  AddEqualParts(kOfTheWhole, menu, *group, now, messages, choose);
  AddEqualParts(kOfEachFile, menu, *group, now, messages, choose);
  menu.setToolTipsVisible(true);
}

}  // namespace korv
