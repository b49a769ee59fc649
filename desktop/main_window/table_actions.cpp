#include "desktop/main_window/table_actions.h"

#include <algorithm>
#include <utility>

#include "base/translation.h"
#include "desktop/main_window/result_controller.h"
#include "desktop/main_window/settings_steps.h"
#include "desktop/results/head_line.h"
#include "desktop/results/result_frame.h"
#include "desktop/results/table/phrase_table_panel.h"
#include "wordlists/typed_words.h"

namespace korv {
namespace {

std::string Joined(const std::vector<std::string>& entries, const char* separator) {
  std::string text;
  for (const std::string& entry : entries) text += (text.empty() ? "" : separator) + entry;
  return text;
}

bool Has(const std::vector<std::string>& entries, const std::string& entry) {
  return std::find(entries.begin(), entries.end(), entry) != entries.end();
}

std::string& TypedOf(ListKind kind, Workspace::State& state) {
  return kind == ListKind::WordsToIgnore ? state.Chosen.ExtraWordsToIgnore : state.CountOnly;
}

const char* SeparatorOf(ListKind kind) {
  return kind == ListKind::WordsToIgnore ? " " : ", ";
}

const char* TipOfIgnored(bool counted) {
  return counted ? Tr("A word to ignore. Click to take it away.")
                 : Tr("A word to ignore, from the next count on. Click to take it away.");
}

const char* TipOfCounted(bool counted) {
  return counted ? Tr("Only phrases with it, or with another such entry, count. Click to take it away.")
                 : Tr("Only phrases with it, or with another such entry, count, from the next count on. "
                      "Click to take it away.");
}

}  // namespace

TableActions::TableActions(const MainPanels& panels, Workspace& work, SettingsSteps& steps,
                           ResultController& result)
    : panels_(panels), work_(work), steps_(steps), result_(result) {
  RowActions& actions = panels_.Frame->Table->Actions;
  actions.IgnoreWord = [this](const std::string& word) { IgnoreWord(word); };
  actions.CountOnlyWith = [this](PhraseIndex phrase) { CountOnlyWith(phrase); };
  actions.LeaveOut = [this](const std::vector<PhraseIndex>& phrases) { LeaveOut(phrases); };
}

// ---- Actions

void TableActions::Type(ListKind kind, const std::string& entry, const std::string& name) {
  if (Has(SplitTypedEntries(kind, work_.TypedOf(kind)), entry)) return;
  steps_.Do(name, [&](Workspace::State& state) {
    std::string& typed = TypedOf(kind, state);
    typed += (typed.empty() ? "" : SeparatorOf(kind)) + entry;
    // Where words to ignore are allowed, one more would do nothing.
    if (kind == ListKind::WordsToIgnore && state.Chosen.IgnoreOption == IgnoreRule::Allow)
      state.Chosen.IgnoreOption = IgnoreRule::ExcludeWith;
  });
}

void TableActions::Untype(ListKind kind, const std::string& entry) {
  std::vector<std::string> entries = SplitTypedEntries(kind, work_.TypedOf(kind));
  std::erase(entries, entry);
  steps_.Do(Fill(Tr("\"%1\" taken away"), {entry}),
            [&](Workspace::State& state) { TypedOf(kind, state) = Joined(entries, SeparatorOf(kind)); });
}

void TableActions::IgnoreWord(const std::string& word) {
  if (!Has(ignored_, word)) ignored_.push_back(word);
  Type(ListKind::WordsToIgnore, word, Fill(Tr("Ignore \"%1\""), {word}));
  ShowChips();
}

void TableActions::CountOnlyWith(PhraseIndex phrase) {
  const std::string text = result_.InFront()->Run.Table.Text(phrase);
  Type(ListKind::CountOnly, text, Fill(Tr("Count only phrases with \"%1\""), {text}));
  ShowChips();
}

void TableActions::LeaveOut(const std::vector<PhraseIndex>& phrases) {
  std::vector<PhraseIndex>& out = result_.InFront()->LeftOut;
  out.insert(out.end(), phrases.begin(), phrases.end());
  FollowRun();
  ShowChips();
}

void TableActions::FollowRun() {
  if (result_.InFront()) panels_.Frame->Table->LeaveOut(result_.InFront()->LeftOut);
}

// ---- Chips

Chip TableActions::ChipOf(ListKind kind, const std::string& entry, bool counted) {
  const bool ignored = kind == ListKind::WordsToIgnore;
  return {.Text = Fill(ignored ? Tr("Ignored: %1") : Tr("Only with: %1"), {entry}),
          .Tip = ignored ? TipOfIgnored(counted) : TipOfCounted(counted),
          .Remove = [this, kind, entry] { Untype(kind, entry); }};
}

void TableActions::AddTyped(std::vector<Chip>& chips) {
  const WordFilterSpec& counted = result_.InFront()->Request.Lists;
  const std::vector<std::string> ignored =
      SplitTypedEntries(ListKind::WordsToIgnore, work_.TypedOf(ListKind::WordsToIgnore));
  for (const std::string& word : ignored_)
    if (Has(ignored, word))
      chips.push_back(ChipOf(ListKind::WordsToIgnore, word, Has(counted.TypedWordsToIgnore, word)));
  for (const std::string& entry : SplitTypedEntries(ListKind::CountOnly, work_.TypedOf(ListKind::CountOnly)))
    chips.push_back(ChipOf(ListKind::CountOnly, entry, Has(counted.CountOnly, entry)));
}

void TableActions::AddListing(std::vector<Chip>& chips) {
  const ShownResult& shown = *result_.InFront();
  if (!shown.LeftOut.empty()) {
    const size_t n = shown.LeftOut.size();
    chips.push_back(
        {.Text = Fill(TrCount("%1 phrase left out", "%1 phrases left out", n), {std::to_string(n)}),
         .Tip = Tr("Left out of the table. Click to show what was left out."),
         .Remove = [this] {
           result_.InFront()->LeftOut.clear();
           FollowRun();
           ShowChips();
         }});
  }
  const ReportOptions& listed = shown.Listing.Options;
  if (shown.InSight && listed.FilterActive && !listed.FilterText.empty())
    chips.push_back({.Text = Fill(Tr("Report filtered: %1"), {listed.FilterText}),
                     .Tip = Tr("The report has only phrases that match. Click to list all."),
                     .Remove = [this] { result_.TakeWayOut(NoteAction::ShowAll); }});
}

void TableActions::ShowChips() {
  std::vector<Chip> chips;
  if (result_.InFront()) {
    AddListing(chips);
    AddTyped(chips);
  }
  panels_.Frame->Head->Chips->ShowChips(std::move(chips));
}

}  // namespace korv
