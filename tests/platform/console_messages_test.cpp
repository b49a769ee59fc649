// What a program without windows says and answers.

#include "platform/console/console_messages.h"

#include <gtest/gtest.h>

#include <sstream>

namespace korv {
namespace {

TEST(ConsoleMessages, SayAnAdditionBelowTheText) {
  std::ostringstream stream;
  ConsoleMessages messages(stream, "korv-count", ConsoleMessages::When::AtOnce);
  messages.Show({.text = "Two\r\nlines", .title = "Title", .addition = "and\r\none more"});
  EXPECT_EQ(stream.str(), "korv-count: Two\nlines\nand\none more\n");
}

TEST(ConsoleMessages, AnswerQuestionsWithoutShowingThem) {
  struct Case {
    Question question;
    Answer answer;
  };
  for (const Case& c : {Case{Question::MinimumFrequency, Answer::No}, Case{Question::LargeInput, Answer::No},
                        Case{Question::LargeDocx, Answer::Yes}, Case{Question::LargeWordList, Answer::Yes},
                        Case{Question::KeepFilter, Answer::Yes}, Case{Question::TextEncoding, Answer::Yes},
                        Case{Question::CountingInterrupted, Answer::Yes}}) {
    // Whatever somebody at a window would get by Enter.
    for (const Answer byDefault : {Answer::Yes, Answer::No, Answer::Cancel}) {
      std::ostringstream stream;
      ConsoleMessages messages(stream, "korv-count", ConsoleMessages::When::AtOnce);
      EXPECT_EQ(messages.Show({.text = "?",
                               .title = "?",
                               .buttons = Buttons::YesNo,
                               .defaultAnswer = byDefault,
                               .question = c.question}),
                c.answer)
          << static_cast<int>(c.question);
      EXPECT_EQ(stream.str(), "");
    }
  }
}

TEST(ConsoleMessages, LeaveNoEmptyLinesBehindAText) {
  std::ostringstream stream;
  ConsoleMessages messages(stream, "korv-count", ConsoleMessages::When::AtOnce);
  messages.Show({.text = "One\r\n\r\ntwo\r\n\r\n", .title = "Title", .addition = "more"});
  messages.Show({.text = "Three\r\n", .title = "Title"});
  EXPECT_EQ(stream.str(), "korv-count: One\n\ntwo\nmore\nkorv-count: Three\n");
}

TEST(ConsoleMessages, NeverChooseAFurtherButton) {
  std::ostringstream stream;
  ConsoleMessages messages(stream, "korv-count", ConsoleMessages::When::AtOnce);
  EXPECT_EQ(messages.Show({.text = "?", .title = "?", .extraButton = "Else"}), Answer::Ok);
  for (const Buttons buttons : {Buttons::YesNo, Buttons::YesNoCancel}) {
    EXPECT_EQ(messages.Show({.text = "?",
                             .title = "?",
                             .buttons = buttons,
                             .question = Question::LargeInput,
                             .extraButton = "Else",
                             .mayBeSilenced = true}),
              Answer::No);
  }
}

}  // namespace
}  // namespace korv
