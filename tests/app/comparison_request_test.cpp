// What a count of two sides is asked for.

#include "app/run/comparison_request.h"

#include <gmock/gmock.h>

#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_messages.h"
#include "tests/fakes/native_paths.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Kind = SourcePath::Kind;

const ComparisonChoice kAtFirst;

RunRequest RequestOf(TextSource kind, const char* path) {
  RunRequest request;
  request.Options.SourceKind = kind;
  request.Options.MinFrequency = 2;
  request.InputPath = path;
  request.OutputPath = "out.txt";
  return request;
}

TEST(SourcesOf, ARunAreAListOfItsSingleSource) {
  struct Case {
    TextSource What;
    const char* Path;
    SourcePath Source;
  };
  const Case cases[] = {{TextSource::Clipboard, "", {"-", Kind::StandardInput}},
                        {TextSource::SingleFile, " a.txt ", {"a.txt", Kind::File}},
                        {TextSource::Folder, " texts/ ", {"texts", Kind::Folder}}};
  for (const Case& one : cases)
    EXPECT_THAT(SourcesOf(RequestOf(one.What, one.Path)), ElementsAre(one.Source)) << one.Path;
}

TEST(SourcesOf, ARunOfSeveralPathsAreThese) {
  RunRequest request = RequestOf(TextSource::Folder, "");
  request.Paths = {{"a.txt", Kind::File}, {"b", Kind::Folder}};
  EXPECT_EQ(SourcesOf(request), request.Paths);
}

TEST(ComparisonOf, ReadsBothSidesAsListsAndWritesNoFile) {
  const ComparisonChoice how{ComparisonBasis::Net, 2, false};
  const RunRequest request =
      ComparisonOf(RequestOf(TextSource::SingleFile, "a.txt"), {{"b", Kind::Folder}}, how);
  EXPECT_EQ(request.Options.SourceKind, TextSource::Folder);
  EXPECT_THAT(request.Paths, ElementsAre(SourcePath{"a.txt", Kind::File}));
  EXPECT_THAT(request.Compared, ElementsAre(SourcePath{"b", Kind::Folder}));
  EXPECT_EQ(request.Comparison, how);
  EXPECT_EQ(request.InputPath, "");
  EXPECT_EQ(request.OutputPath, "");
}

TEST(ComparisonOf, RaisesTheUsualMinimumAloneAndNotThatOfDrafts) {
  struct Case {
    int Asked;
    bool Drafts;
    int Least;
  };
  for (const Case& one : {Case{2, false, 3}, {1, false, 1}, {5, false, 5}, {2, true, 2}}) {
    RunRequest request = RequestOf(TextSource::SingleFile, "a.txt");
    request.Options.MinFrequency = one.Asked;
    EXPECT_EQ(ComparisonOf(request, {{"b.txt"}}, {.Drafts = one.Drafts}).Options.MinFrequency, one.Least)
        << one.Asked << one.Drafts;
  }
}

TEST(ReadsClipboard, AloneAndAsEitherSide) {
  const RunRequest clipboard = RequestOf(TextSource::Clipboard, "");
  const RunRequest file = RequestOf(TextSource::SingleFile, "a.txt");
  EXPECT_TRUE(ReadsClipboard(clipboard));
  EXPECT_TRUE(ReadsClipboard(ComparisonOf(clipboard, {{"b.txt"}}, kAtFirst)));
  EXPECT_TRUE(ReadsClipboard(ComparisonOf(file, SourcesOf(clipboard), kAtFirst)));
  EXPECT_FALSE(ReadsClipboard(file));
  EXPECT_FALSE(ReadsClipboard(ComparisonOf(file, {{"b.txt"}}, kAtFirst)));
}

struct SidesThatAreThere : testing::Test {
  SidesThatAreThere() {
    Files.Add("texts/a.txt", "a");
    Files.Add("texts/b.txt", "b");
  }
  bool AreThere(const char* a, const std::string& b) {
    Request = ComparisonOf(RequestOf(TextSource::SingleFile, a), {{b}}, kAtFirst);
    return SidesAreThere(Request, Files, Messages);
  }

  FakeFiles Files;
  FakeMessages Messages;
  RunRequest Request;
};

TEST_F(SidesThatAreThere, AreFilesOrFolders) {
  EXPECT_TRUE(AreThere("texts/a.txt", "texts/b.txt"));
  EXPECT_THAT(Request.Compared, ElementsAre(SourcePath{"texts/b.txt", Kind::File}));
  EXPECT_TRUE(AreThere("texts/a.txt", "texts/"));
  EXPECT_THAT(Request.Compared, ElementsAre(SourcePath{"texts", Kind::Folder}));
  EXPECT_THAT(Messages.Shown, IsEmpty());
}

TEST_F(SidesThatAreThere, AreToldWhereTheyAreNot) {
  EXPECT_FALSE(AreThere("texts/a.txt", "gone"));
  EXPECT_EQ(Messages.Shown.back().Text, "What is to be compared with does not exist.");
  EXPECT_EQ(Messages.Shown.back().Addition, "gone");
  EXPECT_FALSE(AreThere("gone", "texts/b.txt"));
  EXPECT_EQ(Messages.Shown.back().Text, "Input file does not exist.");
  EXPECT_EQ(Messages.Shown.size(), 2U);
}

}  // namespace
}  // namespace korv
