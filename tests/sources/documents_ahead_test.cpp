#include "sources/read/documents_ahead.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <thread>

#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_messages.h"
#include "tests/fakes/fake_yielder.h"

namespace korv {
namespace {

constexpr size_t kFiles = 100;

/// A folder of texts, of one damaged document and of one that is gone when it is opened.
struct AheadWorld {
  AheadWorld() {
    for (size_t i = 0; i < kFiles; ++i) {
      const std::string name = "/t/" + std::to_string(i) + (i % 7 == 3 ? ".docx" : ".txt");
      Files.Add(name, i % 7 == 3 ? "PK no archive at all" : "text number " + std::to_string(i));
      Plan.AddFile(name);
    }
    Files.Erase("/t/20.txt");
  }

  /// What comes of a document, in one line.
  static std::string Fate(const OpenedDocument& document) {
    std::string fate = document.FileSize ? std::to_string(*document.FileSize) + " bytes: " : "no file: ";
    return fate + (document.Text ? document.Text->Head : std::string(document.Text.Error().SkipReason));
  }
  ReadContext Context() { return {Files, Messages, Yielder, true, nullptr}; }

  FakeFiles Files;
  FakeMessages Messages;
  NoYielder Yielder;
  ReadPlan Plan;
};

TEST(DocumentsAhead, GiveWhatOpeningOneByOneGives) {
  for (const size_t threads : {size_t{1}, size_t{2}, size_t{3}, size_t{16}}) {
    AheadWorld world;
    const ReadContext context = world.Context();
    DocumentsAhead ahead(world.Plan, context, threads);
    for (size_t i = 0; i < kFiles; ++i) {
      if (i % 10 == 9) continue;  // Not every document is wanted.
      EXPECT_EQ(AheadWorld::Fate(ahead.Take(i)),
                AheadWorld::Fate(OpenDocument(world.Plan.Document(i).Path, context)));
    }
    EXPECT_TRUE(world.Files.TemporaryIsClean());
  }
}

TEST(DocumentsAhead, HoldOnlyAFewOpen) {
  AheadWorld world;
  const ReadContext context = world.Context();
  DocumentsAhead ahead(world.Plan, context, 2);
  ahead.Take(0);
  EXPECT_LT(world.Files.Openings(), 60);
}

TEST(DocumentsAhead, LeaveMessagesToTheThreadThatWantsTheDocument) {
  AheadWorld world;
  // No temporary folder can be removed, which is told.
  for (int i = 1; i < 400; ++i)
    world.Files.Refuse("/tmp/private" + std::to_string(i), FileFault::PermissionDenied);
  const auto here = std::this_thread::get_id();
  world.Messages.OnShow = [here](const Message&) { EXPECT_EQ(std::this_thread::get_id(), here); };
  const ReadContext context = world.Context();
  DocumentsAhead ahead(world.Plan, context, 2);
  for (size_t i = 0; i < kFiles; ++i) ahead.Take(i);
  EXPECT_EQ(world.Messages.Shown.size(), 14u) << "one for each document";
}

TEST(DocumentsAhead, AreWorthItForManyFilesOrSomeDocuments) {
  struct {
    size_t Texts;
    size_t Documents;
    bool Expected;
  } const cases[] = {{0, 0, false},  {31, 0, false}, {32, 0, true},
                     {10, 3, false}, {0, 4, true},   {10, 4, true}};
  for (const auto& c : cases) {
    ReadPlan plan;
    for (size_t i = 0; i < c.Texts; ++i) plan.AddFile("/t/" + std::to_string(i) + ".txt");
    for (size_t i = 0; i < c.Documents; ++i) plan.AddFile("/t/" + std::to_string(i) + ".docx");
    AheadWorld world;
    EXPECT_EQ(DocumentsAhead::IsWorthIt(plan, world.Context()), c.Expected) << c.Texts << " " << c.Documents;
  }
}

}  // namespace
}  // namespace korv
