#include "sources/detect/text_file_check.h"

#include <string>

#include "base/size_text.h"
#include "base/translation.h"
#include "sources/detect/declared_encoding.h"
#include "sources/detect/foreign_kind.h"
#include "sources/documents/other_readers.h"
#include "sources/questions.h"

namespace korv {

namespace {

// Up to this size reading a text through another program is worth proposing.
constexpr uint64_t kSmallEnoughToCopy = 102400;
constexpr double kMostlyText = 9.0;
// Files with LF line ends of more than the first size are slow, of more than the second refused.
constexpr uint64_t kSlowUnixBytes = 256000;
constexpr uint64_t kMostUnixBytes = 512000;

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
      return Fill(Tr("File %1 not found."), {path});
    case TextFileCode::ZeroLength:
      return Fill(Tr("File %1 is zero-length."), {path});
    case TextFileCode::PermissionDenied:
      return Fill(Tr("File %1\n cannot be opened (permission denied)."), {path});
    case TextFileCode::TooShort:
      return Fill(Tr("File %1\ncontains only from 1 to 4 bytes."), {path});
    case TextFileCode::CannotOpen:
      return Fill(Tr("File %1\ncannot be opened."), {path});
    case TextFileCode::Rtf:
      return Fill(Tr("File %1\nis an RTF file."), {path});
    case TextFileCode::UnicodeNotUtf8:
      return Fill(Tr("File %1\nis a Unicode file but not UTF-8 encoded."), {path});
    default:
      return {};
  }
}

std::string CopyAdvice(double anomalyPercent, uint64_t size) {
  if (anomalyPercent >= kMostlyText || size == 0 || size >= kSmallEnoughToCopy) return {};
  return Tr(
      "You could try reading it using its associated application, then copying the text and pasting it "
      "into the textbox (then copy it to the clipboard and select 'Clipboard' as the source).");
}

std::string NotTextText(std::string_view path, const TextFacts& facts, double threshold, uint64_t size) {
  std::string text = Fill(Tr("%1\nis not an ANSI or UTF-8 encoded text file."), {path});
  if (facts.AnomalyPercent > threshold) text.append("\n").append(Tr("It appears to be a binary file."));
  const std::string advice = CopyAdvice(facts.AnomalyPercent, size);
  if (!advice.empty()) text += "\n\n" + advice;
  return text;
}

void ShowMacNotice(Messages& messages, std::string_view path) {
  Inform(messages,
         Fill(Tr("File %1\n"
                 "has Macintosh-type line endings (CR).\n\n"
                 "You might wish to use a program such as Notepad++\n"
                 "to convert the line endings to Windows-type (CR+LF)."),
              {path}),
         Tr("This is a Mac-style text file"));
}

std::string SlowUnixText(std::string_view path, std::string_view size) {
  return Fill(Tr("File %1\n"
                 "has Unix-type line endings (LF).\n\n"
                 "The size of this file is %2\n"
                 "so processing of this file might be rather slow.\n\n"
                 "It is advisable to use a program such as Notepad++\n"
                 "to convert the line endings to Windows-type (CR+LF)."),
              {path, size});
}

std::string LongUnixText(std::string_view path, std::string_view size) {
  return Fill(Tr("File %1\n"
                 "has Unix-type line endings (LF).\n\n"
                 "The size of this file is %2\n"
                 "so processing of this file would take a long time.\n\n"
                 "You can process this file by first using a program such as Notepad++\n"
                 "to convert the line endings to Windows-type (CR+LF)."),
              {path, size});
}

// Whether a file with LF line ends is short enough, or wanted all the same.
bool PassesUnixSize(TextFileCheck& check, const std::string& path, uint64_t size, bool askToContinue) {
  if (size <= kSlowUnixBytes) return true;
  const std::string sizeText = FormatByteCount(size, check.Format);
  if (size > kMostUnixBytes) {
    Inform(check.Messages, LongUnixText(path, sizeText), Tr("Cannot process this file"));
    return false;
  }
  const std::string text = SlowUnixText(path, sizeText);
  if (!askToContinue) {
    Inform(check.Messages, text, Tr("This is a Unix-style file"));
    return true;
  }
  const std::string title = Tr("This is a Unix-style text file");
  const Answer answer =
      check.Messages.Show({.Text = text + "\n\n" + Tr("Do you wish to continue processing this file?"),
                           .Title = title,
                           .Icon = Icon::Question,
                           .Buttons = Buttons::YesNo,
                           .DefaultAnswer = Answer::No,
                           .Question = questions::kLargeWordList});
  if (answer == Answer::Yes) return true;
  check.Messages.Show({.Text = Tr("Operation canceled."), .Title = title});
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
      Inform(check.Messages, fatal, Tr("Fatal error"), ForeignListAdvice(opened.Head));
    else if (code == TextFileCode::NotText)
      Inform(check.Messages, NotTextText(name, opened.Facts, kWordListThreshold, size), Tr("Not a text file"),
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

namespace {

/// The advice on a file of another kind, and how Korv reads it where it can.
std::string AdviceOn(const std::string& path, std::string_view head) {
  std::string advice = ForeignKindAdvice(head);
  if (const std::string encoding = SignedEncoding(head); !encoding.empty() && encoding != "UTF-8")
    return advice + "\n" +
           Tr("Korv reads it where texts are read as a reader sees them (korv-count: --reading reader).");
  if (OtherReaderOf(FileExtension(path, true), head, /*isTyped=*/false) == nullptr) return advice;
  if (!advice.empty()) advice += '\n';
  return advice +
         Tr("Korv reads it with the setting \"Read other documents too\" (korv-count: --documents).");
}

}  // namespace

Message SingleFileRefusal(const std::string& path, const TextFacts& facts, std::string_view head,
                          uint64_t size, const NumberFormat& format) {
  Message message;
  message.Title = Tr("Invalid input file");
  message.Icon = Icon::Information;
  switch (facts.Code) {
    case TextFileCode::ZeroLength:
      message.Text = Tr("This is a zero-length file.");
      break;
    case TextFileCode::TooShort:
      message.Text = FatalText(facts.Code, path);
      break;
    case TextFileCode::Rtf:
    case TextFileCode::UnicodeNotUtf8:
      message.Text = FatalText(facts.Code, path);
      message.Title = Tr("Not a text file");
      message.Addition = AdviceOn(path, head);
      break;
    case TextFileCode::NotText:
      message.Text = Fill(Tr("%1 is not a text file."), {path}) + "\n\n";
      if (facts.AnomalyPercent > kRunThreshold) {
        message.Text +=
            Fill(Tr("This file contains a byte %1 at position %2, indicating that it does not consist solely "
                    "of "
                    "text.  The percentage of such anomalous bytes in the first %3 bytes is %4%."),
                 {std::to_string(facts.FirstAnomalousByte), std::to_string(facts.AnomalyPosition),
                  std::to_string(kScannedBytes), PercentText(facts.AnomalyPercent, format)}) +
            "\n\n";
      }
      message.Text += CopyAdvice(facts.AnomalyPercent, size);
      message.Title = Tr("Not a text file");
      message.Addition = AdviceOn(path, head);
      break;
    default:
      message.Text = Tr("This file cannot be opened.");
      break;
  }
  return message;
}

std::string_view SkipReason(TextFileCode code) {
  switch (code) {
    case TextFileCode::ZeroLength:
      return TrLater("is zero-length");
    case TextFileCode::TooShort:
      return TrLater("contains only from 1 to 4 bytes");
    case TextFileCode::PermissionDenied:
      return TrLater("cannot be opened (permission denied)");
    case TextFileCode::NotText:
      return TrLater("is not a text file");
    case TextFileCode::Rtf:
      return TrLater("is an RTF file");
    case TextFileCode::UnicodeNotUtf8:
      return TrLater("is a Unicode file but not UTF-8 encoded");
    default:
      return TrLater("cannot be opened");
  }
}

}  // namespace korv
