#include "cli/manual/completions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace korv {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Kind = OptionValues::Kind;

const std::vector<OptionRow> kOptions = {
    {.Name = "--min-words", .ValueName = "N", .Help = "Fewest words (4)"},
    {.Name = "--relative", .Help = "Percentages, not the writer's [counts]"},
    {.Name = "--order", .ValueName = "frequency|alphabetical", .Help = "Word order"},
    {.Name = "--top", .ValueName = "K|all", .Help = "The first: K"},
    {.Name = "--output,-o", .ValueName = "FILE", .Help = "A file, C:\\a"},
};

TEST(Completions, KnowWhatStandsBehindAnOption) {
  EXPECT_EQ(ValuesOf(kOptions[0]).Of, Kind::Any);
  EXPECT_EQ(ValuesOf(kOptions[1]).Of, Kind::None);
  EXPECT_THAT(ValuesOf(kOptions[2]).Words, ElementsAre("frequency", "alphabetical"));
  EXPECT_THAT(ValuesOf(kOptions[3]).Words, ElementsAre("all"));
  EXPECT_EQ(ValuesOf(kOptions[4]).Of, Kind::Files);
  EXPECT_THAT(ValuesOf(kOptions[4]).Words, IsEmpty());
  EXPECT_THAT(ValuesOf({.Name = "--columns", .ValueName = "LIST"}).Words, Contains("net_frequency"));
  const OptionValues orders = ValuesOf({.Name = "--sort", .ValueName = "ORDER"});
  EXPECT_THAT(orders.Words, Contains("left"));
  EXPECT_THAT(orders.Words, Contains("dispersion"));
  EXPECT_THAT(ValuesOf({.Name = "--common-words", .ValueName = "LANGUAGE"}).Words,
              ElementsAre("en", "de", "es", "pt", "it", "fr", "all"));
}

TEST(Completions, OfBashOfferOptionsValuesAndFiles) {
  const std::string script = BashCompletions(kOptions);
  EXPECT_THAT(script, HasSubstr("    --min-words) return ;;\n"));
  EXPECT_THAT(
      script,
      HasSubstr("    --order) mapfile -t COMPREPLY < <(compgen -W 'frequency alphabetical' -- \"$cur\")"));
  EXPECT_THAT(script, HasSubstr("    --output|-o) mapfile -t COMPREPLY < <(compgen -f -- \"$cur\")"));
  EXPECT_THAT(script, HasSubstr("'--help --version --min-words --relative --order --top --output -o'"));
}

TEST(Completions, OfZshExplainOptions) {
  const std::string script = ZshCompletions(kOptions);
  EXPECT_THAT(script, testing::StartsWith("#compdef korv-count\n"));
  EXPECT_THAT(script, HasSubstr("  '--min-words=[Fewest words (4)]:N:' \\\n"));
  EXPECT_THAT(script, HasSubstr("  '--relative[Percentages, not the writer'\\''s \\[counts\\]]' \\\n"));
  EXPECT_THAT(script,
              HasSubstr("  '--order=[Word order]:frequency|alphabetical:(frequency alphabetical)' \\\n"));
  EXPECT_THAT(script, HasSubstr("  '--top=[The first\\: K]:K|all:(all)' \\\n"));
  EXPECT_THAT(script, HasSubstr("  '--output=[A file, C\\:\\\\a]:FILE:_files' \\\n"));
  EXPECT_THAT(script, HasSubstr("  '-o+[A file, C\\:\\\\a]:FILE:_files' \\\n"));
}

TEST(Completions, OfFishExplainOptions) {
  const std::string script = FishCompletions(kOptions);
  EXPECT_THAT(script, HasSubstr("complete -c korv-count -l min-words -x -d 'Fewest words (4)'\n"));
  EXPECT_THAT(
      script,
      HasSubstr("complete -c korv-count -l relative -d 'Percentages, not the writer\\'s [counts]'\n"));
  EXPECT_THAT(script,
              HasSubstr("complete -c korv-count -l order -x -a 'frequency alphabetical' -d 'Word order'\n"));
  EXPECT_THAT(script, HasSubstr("complete -c korv-count -l output -s o -r -F -d 'A file, C:\\\\a'\n"));
}

TEST(Completions, NameEveryOption) {
  const std::vector<OptionRow> options = OptionRows();
  const std::string bash = BashCompletions(options);
  const std::string zsh = ZshCompletions(options);
  const std::string fish = FishCompletions(options);
  for (const OptionRow& option : options) {
    const std::string name = option.Name.substr(0, option.Name.find(','));
    EXPECT_THAT(bash, HasSubstr(" " + name));
    EXPECT_THAT(zsh, HasSubstr("'" + name));
    EXPECT_THAT(fish, HasSubstr(" -l " + name.substr(2) + " "));
  }
}

}  // namespace
}  // namespace korv
