#include "sources/detect/encoding_choice.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "sources/questions.h"
#include "tests/fakes/fake_messages.h"

namespace korv {
namespace {

class EncodingChooserTest : public testing::Test {
 protected:
  /// What the chooser says of a text of unknown encoding that looks like UTF-8.
  TextEncoding ReadOf(EncodingChooser& chooser, const std::string& path) {
    EncodingPlan plan = chooser.PlanFor(unsigned8, path, messages);
    EXPECT_FALSE(plan.Settled);
    return plan.ConfirmUtf8() ? TextEncoding::Utf8 : TextEncoding::Ansi;
  }

  FakeMessages messages;
  TextFacts unsigned8{.Code = TextFileCode::UnixText};
  TextFacts signed8{.Code = TextFileCode::WindowsText, .IsUtf8 = true};
};

TEST_F(EncodingChooserTest, AsksNothingBeforeTheTextIsRead) {
  EncodingChooser chooser;
  EXPECT_EQ(chooser.PlanFor(unsigned8, "/a", messages).Settled, std::nullopt);
  EXPECT_EQ(chooser.PlanFor(signed8, "/a", messages).Settled, TextEncoding::Utf8);
  EXPECT_TRUE(messages.Shown.empty());
}

TEST_F(EncodingChooserTest, AsksOncePerPath) {
  EncodingChooser chooser;
  EXPECT_EQ(ReadOf(chooser, "/a"), TextEncoding::Utf8) << "Yes is the default";
  EXPECT_EQ(messages.Only().Text,
            "This file appears to be UTF-8 text without a signature.\nDo you wish to read it as UTF-8?");
  EXPECT_EQ(messages.Only().Title, "Text encoding");
  EXPECT_EQ(messages.Only().DefaultAnswer, Answer::Yes);
  EXPECT_EQ(messages.Only().Buttons, Buttons::YesNo);
  EXPECT_EQ(ReadOf(chooser, "/a"), TextEncoding::Utf8);
  EXPECT_EQ(messages.Shown.size(), 1U);
  messages.WillAnswer(questions::kTextEncoding, Answer::No);
  EXPECT_EQ(ReadOf(chooser, "/b"), TextEncoding::Ansi);
  EXPECT_EQ(ReadOf(chooser, "/a"), TextEncoding::Utf8);
  EXPECT_EQ(messages.Shown.size(), 2U);
}

TEST_F(EncodingChooserTest, AsksOncePerFolderRun) {
  EncodingChooser chooser;
  chooser.BeginFolderRun();
  messages.WillAnswer(questions::kTextEncoding, Answer::No);
  EXPECT_EQ(ReadOf(chooser, "/c"), TextEncoding::Ansi);
  EXPECT_EQ(ReadOf(chooser, "/d"), TextEncoding::Ansi);
  EXPECT_EQ(messages.Shown.size(), 1U);
  chooser.EndFolderRun();
  chooser.BeginFolderRun();
  EXPECT_EQ(ReadOf(chooser, "/c"), TextEncoding::Ansi);
  EXPECT_EQ(messages.Shown.size(), 2U) << "the next run asks anew";
}

TEST_F(EncodingChooserTest, AForcedEncodingHoldsForEveryFile) {
  EncodingChooser utf8(EncodingChoice::Utf8);
  EncodingChooser ansi(EncodingChoice::Ansi);
  for (const TextFacts& facts : {unsigned8, signed8}) {
    EXPECT_EQ(utf8.PlanFor(facts, "/a", messages).Settled, TextEncoding::Utf8);
    EXPECT_EQ(ansi.PlanFor(facts, "/a", messages).Settled, TextEncoding::Ansi);
  }
  EXPECT_TRUE(messages.Shown.empty());
}

}  // namespace
}  // namespace korv
