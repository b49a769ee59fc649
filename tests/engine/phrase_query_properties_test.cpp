#include <gtest/gtest.h>

#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <vector>

#include "engine/analysis/phrase_list.h"
#include "engine/analysis/phrase_query.h"
#include "tests/engine/counting_world.h"
#include "tests/reference/naive_query.h"
#include "tests/reference/naive_text.h"

// Queries against a search in the texts of the phrases, over whole runs.

namespace korv {
namespace {

constexpr MatchMode kModes[] = {MatchMode::Contains,       MatchMode::WholeWords, MatchMode::StartsWith,
                                MatchMode::EndsWith,       MatchMode::Wildcards,  MatchMode::Expression,
                                MatchMode::WordsInAnyOrder};

const std::vector<std::string> kExpressions = {
    "^a", "e$", "a b", "(a|the)\\b", "t.e", "[b-d]+ c", "^\\w+ \\w+$", "(", "x*", "-b", "- a\\b", "\\bhe\\b"};

/// A part of a phrase of the run, by characters, perhaps with something wrong in it.
std::string DrawPart(const PhraseTable& table) {
  std::u32string text = U"a b";
  if (table.EntryCount() > 0)
    text = reference::Decode(table.Text(PhraseIndex{*rc::gen::inRange<uint32_t>(1, table.EntryCount() + 1)}));
  const size_t begin = *rc::gen::inRange<size_t>(0, text.size());
  text = text.substr(begin, *rc::gen::inRange<size_t>(1, text.size() + 1));
  const int change = *rc::gen::inRange(0, 12);
  const size_t at = *rc::gen::inRange<size_t>(0, text.size());
  if (change == 0) text[at] = U'*';
  if (change == 1) text[at] = U'?';
  if (change == 2) text.insert(at, U"  ");
  if (change == 3) text.insert(0, U"-");
  if (change == 4) text = U" - " + text + U"\t";
  if (change == 5) text[at] = U'É';
  if (change == 6) text[at] = U'T';
  if (change == 7) text += U" " + text;
  return reference::Encode(text);
}

PhraseQuery DrawQuery(const PhraseTable& table) {
  PhraseQuery query;
  query.Mode = *rc::gen::elementOf(std::vector<MatchMode>(std::begin(kModes), std::end(kModes)));
  query.Text = query.Mode == MatchMode::Expression ? *rc::gen::elementOf(kExpressions) : DrawPart(table);
  query.Not = *rc::gen::arbitrary<bool>();
  query.FoldAccents = *rc::gen::arbitrary<bool>();
  return query;
}

/// The texts that pass, in the order of the list.
std::vector<std::string> Texts(const PhraseTable& table, const PhraseList& list) {
  std::vector<std::string> texts;
  for (uint32_t row = 0; row < list.Rows(); ++row) texts.push_back(table.Text(list.EntryAt(row)));
  return texts;
}

RC_GTEST_PROP(PhraseQueryProperties, PassesWhatASearchInTheTextPasses, ()) {
  const CountingWorld world = DrawWorld({.Lists = true, .Rules = true});
  RC_LOG() << world;
  const EngineRun run = CountedByEngine(world);
  const PhraseQuery query = DrawQuery(run.Table);
  RC_LOG() << "mode " << static_cast<int>(query.Mode) << " [" << query.Text << "]"
           << (query.Not ? " not" : "") << (query.FoldAccents ? " accents" : "") << '\n';
  NoYielder yielder;
  const auto matcher = PhraseMatcher::Compile(query, run.Table, yielder);
  RC_ASSERT(matcher.HasValue() == (query.Text != "("));
  if (!matcher) return;

  const SharedOrder order = OrderByPhrase(run.Table, SortDirection::Ascending, yielder);
  const auto test = [&](std::span<const PhraseIndex> entries, uint64_t candidates) {
    return matcher->Passing(entries, candidates);
  };
  const auto found = FilterRows(run.Table, order, test, yielder);
  std::vector<std::string> expected;
  for (const PhraseIndex i : run.Table.All()) {
    if (!run.Table.Listed(i)) continue;
    const std::string text = run.Table.Text(i);
    if (reference::PassesQuery(text, query, world.Rules.CaseSignificant)) expected.push_back(text);
    RC_ASSERT(matcher->Passes(i) == reference::PassesQuery(text, query, world.Rules.CaseSignificant));
  }
  RC_TAG(expected.empty() ? "none" : "some");
  RC_ASSERT(Texts(run.Table, *found) == expected);
  RC_ASSERT(!MatchesAll(query) || expected.size() == order->Entries.size());
}

RC_GTEST_PROP(PhraseQueryProperties, WhatNarrowsPassesNothingElse, ()) {
  const CountingWorld world = DrawWorld({.Rules = true});
  RC_LOG() << world;
  const EngineRun run = CountedByEngine(world);
  PhraseQuery before = DrawQuery(run.Table);
  PhraseQuery after = before;
  after.Text = *rc::gen::arbitrary<bool>() ? before.Text + DrawPart(run.Table) : DrawQuery(run.Table).Text;
  NoYielder yielder;
  const auto first = PhraseMatcher::Compile(before, run.Table, yielder);
  const auto then = PhraseMatcher::Compile(after, run.Table, yielder);
  RC_PRE(first.HasValue() && then.HasValue());
  const bool narrows = Narrows(before, after);
  RC_TAG(narrows ? "narrows" : "does not");
  if (!narrows) return;
  for (const PhraseIndex i : run.Table.All()) RC_ASSERT(first->Passes(i) || !then->Passes(i));
}

}  // namespace
}  // namespace korv
