#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "sources/detect/classification.h"
#include "sources/read/document_readers.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_messages.h"

namespace korv {

/// What a reader made of a document.
struct MadeText {
  std::string Text;
  std::vector<TextMark> Marks;
  PlaceUnit Unit = PlaceUnit::Line;
  std::string Refusal;  ///< Empty where it was read.
  std::string MessageAlone;
};

/// Opens documents as a run does that reads the further kinds.
class OtherDocumentsTest : public testing::Test {
 protected:
  MadeText Open(const std::string& name, const std::string& content) {
    files.Add("/in/" + name, content);
    OpenedText opened = OpenTextSource(files, "/in/" + name, kRunThreshold);
    const DocumentReader& reader = ReaderOfFile("/in/" + name, opened.Head, readAs, choice.Others);
    auto text = reader.Open("/in/" + name, std::move(opened),
                            {files, messages, yielder, isOneOfMany, {}, readAs, choice});
    if (!text)
      return {.Text = {},
              .Marks = {},
              .Refusal = std::string(text.Error().SkipReason),
              .MessageAlone = text.Error().MessageAlone(NumberFormat()).Text};
    EXPECT_EQ(files.Content("/in/" + name), content) << "the file is as it was";
    EXPECT_TRUE(files.TemporaryIsClean());
    return {std::move(text->Head), std::move(text->Marks), text->Unit, {}, {}};
  }
  /// The document cut off behind every byte is read or refused, never worse.
  void OpenCutOffAnywhere(const std::string& name, const std::string& content) {
    for (size_t size = 1; size < content.size(); ++size) {
      const MadeText cut = Open(name, content.substr(0, size));
      EXPECT_TRUE(cut.Refusal.empty() || cut.Text.empty()) << size;
    }
  }

  FakeFiles files;
  FakeMessages messages;
  NoYielder yielder;
  DocumentChoice choice{.Others = true, .Segments = {}, .OnlyElements = {}, .SkippedElements = {}};
  std::string readAs;
  bool isOneOfMany = false;
};

}  // namespace korv
