#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QToolButton>
#include <algorithm>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "app/run/run.h"
#include "desktop/desktop.h"
#include "desktop/results/table/match_bar.h"
#include "desktop/results/table/phrase_grid.h"
#include "desktop/results/table/phrase_table_panel.h"
#include "desktop/results/table/row_details.h"
#include "desktop/results/table/table_bar.h"
#include "tests/desktop/fake_surroundings.h"
#include "tests/fakes/fake_files.h"
#include "tests/report/report_world.h"

namespace korv {

/// A finished run of what was said.
inline std::shared_ptr<const CountedRun> RunOf(ReportWorld world) {
  auto run = std::make_shared<CountedRun>();
  world.Finish();
  run->Table = std::move(world.Table);
  run->Facts = world.Facts;
  return run;
}

/// A text of phrases, each said so many times, without a file.
inline std::shared_ptr<const CountedRun> RunOf(std::initializer_list<ReportWorld::Occurrences> phrases) {
  ReportWorld world;
  world.Facts.Options.KeepPlaces = true;
  for (const ReportWorld::Occurrences& said : phrases) {
    world.Say(said.Phrase, said.Count);
    const std::string_view phrase = said.Phrase;
    const auto words = static_cast<uint64_t>(std::ranges::count(phrase, ' ') + 1);
    world.Facts.Words.Taken += words * static_cast<uint64_t>(said.Count);
  }
  return RunOf(std::move(world));
}

/// The table alone, over runs made by hand. Controls are found by their names.
class TableTest : public testing::Test {
 protected:
  TableTest() { QApplication::setKeyboardInputInterval(600'000); }
  ~TableTest() override {
    panel.reset();
    EXPECT_THAT(messages.UntitledQuestions, testing::IsEmpty());
  }

  /// Opens the table, or opens it anew as after a restart.
  void Open() {
    panel.reset();
    surroundings = std::make_unique<Desktop>(around.On(files));
    panel = std::make_unique<PhraseTablePanel>(*surroundings, nullptr);
    panel->resize(1000, 400);
    panel->show();
  }
  void Show(std::shared_ptr<const CountedRun> run) {
    if (panel == nullptr) Open();
    shown = run;
    panel->Show(std::move(run));
    UntilIdle();
  }
  void UntilIdle() const {
    while (!panel->Idle()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QApplication::processEvents();
  }

  template <typename Control>
  Control* Find(const char* name) const {
    auto* control = panel->findChild<Control*>(QLatin1String(name));
    EXPECT_NE(control, nullptr) << name;
    return control;
  }
  void Type(const char* name, const char* text) const {
    Find<QLineEdit>(name)->setText(QString::fromUtf8(text));
    UntilIdle();
  }
  void Click(const char* name) const {
    Find<QAbstractButton>(name)->click();
    UntilIdle();
  }
  void Choose(const char* name, const char* item) const {
    auto* combo = Find<QComboBox>(name);
    const int index = combo->findText(QLatin1String(item));
    EXPECT_GE(index, 0) << item;
    combo->setCurrentIndex(index);
    UntilIdle();
  }
  std::string TextOf(const char* name) const { return Find<QLabel>(name)->text().toStdString(); }

  PhraseGrid& Grid() const { return *panel->tblPhrases; }
  QAbstractItemModel& Model() const { return *Grid().model(); }
  /// The section with this heading; -1 where there is none.
  int Section(const char* heading) const {
    for (int section = 0; section < Model().columnCount(); ++section)
      if (Model().headerData(section, Qt::Horizontal).toString() == QLatin1String(heading)) return section;
    return -1;
  }
  std::string TextAt(int row, const char* heading) const {
    return Model().index(row, Section(heading)).data().toString().toStdString();
  }
  /// The texts of a column, from the top.
  std::vector<std::string> Column(const char* heading) const {
    std::vector<std::string> texts;
    for (int row = 0; row < Model().rowCount(); ++row) texts.push_back(TextAt(row, heading));
    return texts;
  }
  std::vector<std::string> Phrases() const { return Column("Phrase"); }
  /// The headings that are in sight, from the left.
  std::vector<std::string> Headings() const {
    const QHeaderView& header = *Grid().horizontalHeader();
    std::vector<std::string> headings;
    for (int visual = 0; visual < header.count(); ++visual) {
      const int section = header.logicalIndex(visual);
      if (!header.isSectionHidden(section))
        headings.push_back(Model().headerData(section, Qt::Horizontal).toString().toStdString());
    }
    return headings;
  }
  void ClickHeading(const char* heading) const {
    const QHeaderView& header = *Grid().horizontalHeader();
    const int section = Section(heading);
    Grid().horizontalHeader()->setOffset(0);
    QTest::mouseClick(
        header.viewport(), Qt::LeftButton, {},
        {header.sectionViewportPosition(section) + header.sectionSize(section) / 2, header.height() / 2});
    UntilIdle();
  }
  void Press(int key, Qt::KeyboardModifiers modifiers = {}) const {
    QTest::keyClick(&Grid(), static_cast<Qt::Key>(key), modifiers);
    UntilIdle();
  }
  /// Chooses an entry of the menu of a button, as a user does who opens it.
  void ChooseFrom(const char* button, const char* entry) const {
    QMenu* const menu = Find<QToolButton>(button)->menu();
    emit menu->aboutToShow();
    auto* action = menu->findChild<QAction*>(QLatin1String(entry));
    ASSERT_NE(action, nullptr) << entry;
    action->trigger();
    UntilIdle();
  }
  /// The phrase that the keys act on.
  std::string Current() const {
    const PhraseIndex phrase = panel->CurrentPhrase();
    return phrase == kNoPhrase ? std::string() : shown->Table.Text(phrase);
  }
  FakeSurroundings around;
  FakeMessages& messages = around.Messages;
  NumberFormat& numbers = around.Numbers;
  QSettings& store = around.Store;
  FakeFiles files;
  std::unique_ptr<Desktop> surroundings;
  std::shared_ptr<const CountedRun> shown;
  std::unique_ptr<PhraseTablePanel> panel;
};

}  // namespace korv
