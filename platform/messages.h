#pragma once

#include <optional>
#include <string>

namespace korv {

enum class Icon { None, Information, Exclamation, Critical, Question };
enum class Buttons { Ok, YesNo, YesNoCancel };
enum class Answer { Ok, Yes, No, Cancel, Extra };

/// Which question a message asks. A program without windows answers by this, never by the words.
enum class Question {
  None,                 ///< Nothing is asked; the only answer is Ok.
  ReallyStop,           ///< Stop the run that is going on?
  MinimumFrequency,     ///< Raise the minimum frequency from 1 to 2?
  KeepFilter,           ///< Keep the filter words for the new result?
  CountingInterrupted,  ///< List what was found before the stop?
  LargeInput,           ///< Name an output file before a large input is counted?
  TextEncoding,         ///< Read a text without a signature as UTF-8?
  LargeDocx,            ///< Go on with a .docx whose text is large?
  StopDocx,             ///< Stop taking the text out of a .docx?
  LargeWordList,        ///< Go on with a large word list that has LF line ends?
  ClearWordFiles,       ///< Empty the list of word-list files?
  LoadCommonWords,      ///< Load the common-words file of a language?
  LoadWordFile,         ///< Load the word-list file that restored settings select?
  FirstCommonWords,     ///< Load the English common words at the first start?
  Relist,               ///< List again, now into the output file?
  RereadSource,         ///< May a changed word rule discard the counted result?
  SetDefaults,          ///< Set the defaults after a settings file that ended early?
  ReallyQuit,           ///< Quit?
  KeepSettings,         ///< Keep changed settings that quitting would forget?
  Reinitialize,         ///< Set everything to its defaults?
  SeveralFiles,         ///< Refused for want of an output file; further: show the result in the window only?
  OnlySubfolders,       ///< Refused for want of files; further: count those of the subfolders?
};

/// One message box. Texts are UTF-8 with CR LF line breaks. What a text is about stands in `Text`; the
/// members below `Question` add to it and may be left out without changing what Escape, Enter and a program
/// without windows do.
struct Message {
  std::string Text;
  std::string Title;
  korv::Icon Icon = korv::Icon::None;
  korv::Buttons Buttons = korv::Buttons::Ok;
  Answer DefaultAnswer = Answer::Ok;
  korv::Question Question = korv::Question::None;
  /// A line below the text; empty for none.
  std::string Addition{};
  /// The caption of one further button, which answers Answer::Extra; empty for none. Never the default, and
  /// nobody chooses it but the user.
  std::string ExtraButton{};
  /// Captions for the buttons of Answer::Yes and Answer::No; empty for the usual words.
  std::string YesButton{};
  std::string NoButton{};
  /// Windows offer "Do not ask again". Once that is ticked, the question gets `SilencedAnswer`, or where that
  /// is empty the answer that was given with the tick. The question has to have a `Question` of its own.
  bool MayBeSilenced = false;
  std::optional<Answer> SilencedAnswer{};
};

/// Shows messages and asks questions. Called on the one thread that runs the program's events;
/// returns when the user has answered.
class Messages {
 public:
  virtual ~Messages() = default;
  virtual Answer Show(const Message& message) = 0;
  /// Offers `initial` for editing. Empty when the user cancelled.
  virtual std::optional<std::string> AskText(const std::string& prompt, const std::string& title,
                                             const std::string& initial) = 0;
};

}  // namespace korv
