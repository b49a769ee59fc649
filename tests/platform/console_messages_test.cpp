// What a program without windows says and answers.

#include "platform/console/console_messages.h"

#include <gtest/gtest.h>

#include <sstream>

namespace korv {
namespace {

TEST(ConsoleMessages, SayAnAdditionBelowTheText) {
  std::ostringstream stream;
  ConsoleMessages messages(stream, "korv-count", ConsoleMessages::When::AtOnce);
  messages.Show({.Text = "Two\r\nlines", .Title = "Title", .Addition = "and\r\none more"});
  EXPECT_EQ(stream.str(), "korv-count: Two\nlines\nand\none more\n");
}

TEST(ConsoleMessages, AnswerQuestionsWithoutShowingThem) {
  struct Case {
    korv::Question Question;
    korv::Answer Answer;
  };
  for (const Case& c : {Case{Question::MinimumFrequency, Answer::No}, Case{Question::LargeInput, Answer::No},
                        Case{Question::LargeDocx, Answer::Yes}, Case{Question::LargeWordList, Answer::Yes},
                        Case{Question::KeepFilter, Answer::Yes}, Case{Question::TextEncoding, Answer::Yes},
                        Case{Question::CountingInterrupted, Answer::Yes}}) {
    // Whatever somebody at a window would get by Enter.
    for (const Answer byDefault : {Answer::Yes, Answer::No, Answer::Cancel}) {
      std::ostringstream stream;
      ConsoleMessages messages(stream, "korv-count", ConsoleMessages::When::AtOnce);
      EXPECT_EQ(messages.Show({.Text = "?",
                               .Title = "?",
                               .Buttons = Buttons::YesNo,
                               .DefaultAnswer = byDefault,
                               .Question = c.Question}),
                c.Answer)
          << static_cast<int>(c.Question);
      EXPECT_EQ(stream.str(), "");
    }
  }
}

TEST(ConsoleMessages, LeaveNoEmptyLinesBehindAText) {
  std::ostringstream stream;
  ConsoleMessages messages(stream, "korv-count", ConsoleMessages::When::AtOnce);
  messages.Show({.Text = "One\r\n\r\ntwo\r\n\r\n", .Title = "Title", .Addition = "more"});
  messages.Show({.Text = "Three\r\n", .Title = "Title"});
  EXPECT_EQ(stream.str(), "korv-count: One\n\ntwo\nmore\nkorv-count: Three\n");
}

TEST(ConsoleMessages, NeverChooseAFurtherButton) {
  std::ostringstream stream;
  ConsoleMessages messages(stream, "korv-count", ConsoleMessages::When::AtOnce);
  EXPECT_EQ(messages.Show({.Text = "?", .Title = "?", .ExtraButton = "Else"}), Answer::Ok);
  for (const Buttons buttons : {Buttons::YesNo, Buttons::YesNoCancel}) {
    EXPECT_EQ(messages.Show({.Text = "?",
                             .Title = "?",
                             .Buttons = buttons,
                             .Question = Question::LargeInput,
                             .ExtraButton = "Else",
                             .MayBeSilenced = true}),
              Answer::No);
  }
}

}  // namespace
}  // namespace korv
