#include "sources/detect/text_file_check.h"

#include <string>

#include "base/size_text.h"
#include "sources/detect/foreign_kind.h"
#include "sources/questions.h"

namespace korv {

namespace {

constexpr std::string_view kBreak = "\n";
// Up to this size reading a text through another program is worth proposing.
constexpr uint64_t kSmallEnoughToCopy = 102400;
constexpr double kMostlyText = 9.0;
// Files with LF line ends of more than the first size are slow, of more than the second refused.
constexpr uint64_t kSlowUnixBytes = 256000;
constexpr uint64_t kMostUnixBytes = 512000;

std::string Text(std::initializer_list<std::string_view> parts) {
  std::string text;
  for (const std::string_view part : parts) text += part;
  return text;
}

void Inform(Messages& messages, std::string text, std::string title, std::string addition = {}) {
  messages.Show({.Text = std::move(text),
                 .Title = std::move(title),
                 .Icon = Icon::Information,
                 .Addition = std::move(addition)});
}

// What is wrong with a file that cannot be read as text at all; empty for the other codes.
std::string FatalText(TextFileCode code, std::string_view path) {
  switch (code) {
    case TextFileCode::NotFound:
      return Text({"File ", path, " not found."});
    case TextFileCode::ZeroLength:
      return Text({"File ", path, " is zero-length."});
    case TextFileCode::PermissionDenied:
      return Text({"File ", path, kBreak, " cannot be opened (permission denied)."});
    case TextFileCode::TooShort:
      return Text({"File ", path, kBreak, "contains only from 1 to 4 bytes."});
    case TextFileCode::CannotOpen:
      return Text({"File ", path, kBreak, "cannot be opened."});
    case TextFileCode::Rtf:
      return Text({"File ", path, kBreak, "is an RTF file."});
    case TextFileCode::UnicodeNotUtf8:
      return Text({"File ", path, kBreak, "is a Unicode file but not UTF-8 encoded."});
    default:
      return {};
  }
}

std::string CopyAdvice(double anomalyPercent, uint64_t size) {
  if (anomalyPercent >= kMostlyText || size == 0 || size >= kSmallEnoughToCopy) return {};
  return "You could try reading it using its associated application, then copying the text and pasting it "
         "into the textbox (then copy it to the clipboard and select 'Clipboard' as the source).";
}

std::string NotTextText(std::string_view path, const TextFacts& facts, double threshold, uint64_t size) {
  std::string text = Text({path, kBreak, "is not an ANSI or UTF-8 encoded text file."});
  if (facts.AnomalyPercent > threshold) text += "\nIt appears to be a binary file.";
  const std::string advice = CopyAdvice(facts.AnomalyPercent, size);
  if (!advice.empty()) text += "\n\n" + advice;
  return text;
}

void ShowMacNotice(Messages& messages, std::string_view path) {
  Inform(messages,
         Text({"File ", path, kBreak, "has Macintosh-type line endings (CR).", kBreak, kBreak,
               "You might wish to use a program such as Notepad++", kBreak,
               "to convert the line endings to Windows-type (CR+LF)."}),
         "This is a Mac-style text file");
}

std::string UnixText(std::string_view path, std::string_view size, std::string_view consequence,
                     std::string_view advice) {
  return Text({"File ", path, kBreak, "has Unix-type line endings (LF).", kBreak, kBreak,
               "The size of this file is ", size, kBreak, consequence, kBreak, kBreak, advice, kBreak,
               "to convert the line endings to Windows-type (CR+LF)."});
}

// Whether a file with LF line ends is short enough, or wanted all the same.
bool PassesUnixSize(TextFileCheck& check, const std::string& path, uint64_t size, bool askToContinue) {
  if (size <= kSlowUnixBytes) return true;
  const std::string sizeText = FormatByteCount(size, check.Format);
  if (size > kMostUnixBytes) {
    Inform(check.Messages,
           UnixText(path, sizeText, "so processing of this file would take a long time.",
                    "You can process this file by first using a program such as Notepad++"),
           "Cannot process this file");
    return false;
  }
  const std::string text = UnixText(path, sizeText, "so processing of this file might be rather slow.",
                                    "It is advisable to use a program such as Notepad++");
  if (!askToContinue) {
    Inform(check.Messages, text, "This is a Unix-style file");
    return true;
  }
  const std::string title = "This is a Unix-style text file";
  const Answer answer =
      check.Messages.Show({.Text = text + "\n\nDo you wish to continue processing this file?",
                           .Title = title,
                           .Icon = Icon::Question,
                           .Buttons = Buttons::YesNo,
                           .DefaultAnswer = Answer::No,
                           .Question = questions::kLargeWordList});
  if (answer == Answer::Yes) return true;
  check.Messages.Show({.Text = "Operation canceled.", .Title = title});
  return false;
}

// 1.50 as "1.50", 0.61 as ".61".
std::string PercentText(double percent, NumberFormat format) {
  format.LeadingZero = false;
  return format.Decimals(percent, 2);
}

}  // namespace

bool IsTextFile(TextFileCheck& check, const std::filesystem::path& path, bool silent, bool askToContinue,
                OpenedText& opened) {
  if (check.ClearOutput) check.ClearOutput();
  opened = OpenTextSource(check.Files, path, kWordListThreshold);
  const uint64_t size = opened.File ? opened.File->Size() : 0;
  TextFileCode& code = opened.Facts.Code;
  const std::string name = PathToText(path);
  if (!IsReadableText(code)) {
    const std::string fatal = FatalText(code, name);
    if (!fatal.empty())
      Inform(check.Messages, fatal, "Fatal error", ForeignListAdvice(opened.Head));
    else if (code == TextFileCode::NotText)
      Inform(check.Messages, NotTextText(name, opened.Facts, kWordListThreshold, size), "Not a text file",
             ForeignListAdvice(opened.Head));
    return false;
  }
  if (silent) return true;
  if (code == TextFileCode::MacText && !check.MacNoticeShown) {
    check.MacNoticeShown = true;
    ShowMacNotice(check.Messages, name);
  }
  if (code == TextFileCode::UnixText && !PassesUnixSize(check, name, size, askToContinue)) {
    code = TextFileCode::NotText;
    return false;
  }
  return true;
}

Message SingleFileRefusal(const std::string& path, const TextFacts& facts, std::string_view head,
                          uint64_t size, const NumberFormat& format) {
  Message message;
  message.Title = "Invalid input file";
  message.Icon = Icon::Information;
  switch (facts.Code) {
    case TextFileCode::ZeroLength:
      message.Text = "This is a zero-length file.";
      break;
    case TextFileCode::TooShort:
      message.Text = FatalText(facts.Code, path);
      break;
    case TextFileCode::Rtf:
    case TextFileCode::UnicodeNotUtf8:
      message.Text = FatalText(facts.Code, path);
      message.Title = "Not a text file";
      message.Addition = ForeignKindAdvice(head);
      break;
    case TextFileCode::NotText:
      message.Text = path + " is not a text file.\n\n";
      if (facts.AnomalyPercent > kRunThreshold) {
        message.Text +=
            Text({"This file contains a byte", NumberWithBlank(facts.FirstAnomalousByte), " at position",
                  NumberWithBlank(facts.AnomalyPosition), ", ",
                  "indicating that it does not consist solely of text.  ",
                  "The percentage of such anomalous bytes in the first", NumberWithBlank(kScannedBytes),
                  " bytes is ", PercentText(facts.AnomalyPercent, format), "%.", kBreak, kBreak});
      }
      message.Text += CopyAdvice(facts.AnomalyPercent, size);
      message.Title = "Not a text file";
      message.Addition = ForeignKindAdvice(head);
      break;
    default:
      message.Text = "This file cannot be opened.";
      break;
  }
  return message;
}

std::string_view SkipReason(TextFileCode code) {
  switch (code) {
    case TextFileCode::ZeroLength:
      return "is zero-length";
    case TextFileCode::TooShort:
      return "contains only from 1 to 4 bytes";
    case TextFileCode::PermissionDenied:
      return "cannot be opened (permission denied)";
    case TextFileCode::NotText:
      return "is not a text file";
    case TextFileCode::Rtf:
      return "is an RTF file";
    case TextFileCode::UnicodeNotUtf8:
      return "is a Unicode file but not UTF-8 encoded";
    default:
      return "cannot be opened";
  }
}

}  // namespace korv
