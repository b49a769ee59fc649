#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/sources/other_documents.h"

namespace korv {
namespace {

using namespace std::string_literals;

class SubtitlesTest : public OtherDocumentsTest {};

constexpr const char* kTime = "00:00:01,000 --> 00:00:02,500\n";

TEST_F(SubtitlesTest, AreWhatIsSaid) {
  struct Row {
    const char* Name;
    const char* File;
    std::string Content;
    const char* Text;
  };
  for (const Row& row : {
           Row{"SRT", "a.srt", "1\n"s + kTime + "One two\nthree\n\n2\n" + kTime + "four\n",
               "One two\nthree\nfour\n"},
           Row{"with CR LF", "a.srt", "1\r\n"s + "00:01 --> 00:02\r\n" + "One\r\n\r\n", "One\n"},
           Row{"tags", "a.srt", "1\n"s + kTime + "<i>wo</i>rd {\\an8}<font color=\"red\">two</font> < 3\n",
               "word two < 3\n"},
           Row{"the dash of a speaker", "a.srt", "1\n"s + kTime + "- One\n\u2013 two-three\n-\n",
               "One\ntwo-three\n"},
           Row{"a number that is said", "a.srt", "1\n"s + kTime + "1984\n\n2\n" + kTime + "two\n",
               "1984\ntwo\n"},
           Row{"a blank line amid a cue", "a.srt", "1\n"s + kTime + "one\n\ntwo\n\n2\n" + kTime + "three\n",
               "one\ntwo\nthree\n"},
           Row{"what stands before the first cue", "a.srt", "a note\n1\n"s + kTime + "one\n", "one\n"},
           Row{"VTT", "a.vtt",
               "WEBVTT - title\nKind: captions\n\nNOTE\na remark\n\nSTYLE\n::cue {}\n\nintro\n"
               "00:01.000 --> 00:02.000 align:start\n<v Ann>Tea &amp; caf&eacute; <00:01.500>now\n\nNOTE "
               "no\n",
               "Tea & caf\u00E9 now\n"},
           Row{"LRC", "a.lrc", "[ar:Somebody]\n[00:01.00][00:09.00]La <00:01.50>la\n\n[00:02.00]\nplain\n",
               "La la\nplain\n"},
           Row{"a signature", "a.srt",
               "\xEF\xBB\xBF"
               "1\n"s +
                   kTime + "caf\u00E9\n",
               "caf\u00E9\n"},
           Row{"ANSI", "a.srt", "1\n"s + kTime + "caf\xE9 \x80\n", "caf\u00E9 \u20AC\n"},
       })
    EXPECT_EQ(Open(row.File, row.Content).Text, row.Text) << row.Name;
}

TEST_F(SubtitlesTest, EndPhrasesWithACueThatEndsASentence) {
  const auto cues = [](const std::vector<std::string>& said) {
    std::string file;
    for (const std::string& text : said) file += std::string("1\n") + kTime + text + "\n\n";
    return file;
  };
  struct Row {
    const char* First;
    bool Ends;
  };
  for (const Row& row : {Row{"one", false}, Row{"one,", false}, Row{"one.", true}, Row{"one!", true},
                         Row{"one?\"", true}, Row{"one.)\u201D", true}, Row{"one\u2026", true},
                         Row{"\u4E00\u3002", true}, Row{"<i>one.</i>", true}, Row{"one -", false}}) {
    const MadeText subtitles = Open("a.srt", cues({row.First, "two"}));
    ASSERT_EQ(subtitles.Marks.size(), 2u) << row.First;
    EXPECT_EQ(subtitles.Marks[1].EndsPhrase, row.Ends) << row.First;
    EXPECT_EQ(subtitles.Marks[1].Number, 2u);
    EXPECT_EQ(subtitles.Unit, PlaceUnit::Cue);
  }
}

TEST_F(SubtitlesTest, WithoutCuesAreRefused) {
  EXPECT_EQ(Open("a.srt", "some words").Refusal, "has no text of the kind that was asked for");
  EXPECT_EQ(Open("a.vtt", "WEBVTT\n\nNOTE nothing\n").Refusal, "has no text of the kind that was asked for");
}

TEST_F(SubtitlesTest, CutOffAnywhereAreReadOrRefused) {
  OpenCutOffAnywhere("a.srt", "1\n"s + kTime + "<i>caf\u00E9</i> {\\an8}x\n\n2\n" + kTime + "- two.\n");
  OpenCutOffAnywhere("a.vtt", "WEBVTT\n\n00:01 --> 00:02\nx &amp; y\n");
  OpenCutOffAnywhere("a.lrc", "[00:01.00]La <00:02.00>la\n");
}

TEST_F(SubtitlesTest, AreTextWhereTheUserSaysSo) {
  readAs = "txt";
  EXPECT_EQ(Open("a.srt", "1\n"s + kTime + "one\n").Unit, PlaceUnit::Line);
  EXPECT_EQ(Open("a.srt", "1\n"s + kTime + "one\n").Text, "1\n"s + kTime + "one\n");
}

}  // namespace
}  // namespace korv
