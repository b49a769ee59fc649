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
