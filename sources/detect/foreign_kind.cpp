#include "sources/detect/foreign_kind.h"

#include <algorithm>
#include <array>

#include "base/translation.h"

namespace korv {

namespace {

using namespace std::string_view_literals;

struct Advice {
  const char* What;
  const char* ToDo;  ///< With a text that is to be counted.
};

struct Kind {
  std::string_view Bytes;  ///< What such files begin with.
  Advice Says;
};

constexpr Advice kPicture{
    TrLater("It is a picture."),
    TrLater("The words in it must first be recognised by a program for scanned pages.")};
constexpr Advice kWide{TrLater("It is text in UTF-16 or UTF-32."),
                       TrLater("Open it in an editor and save it with the encoding UTF-8.")};
constexpr Advice kPacked{TrLater("It is a packed file."),
                         TrLater("Unpack it first and count what comes out.")};

constexpr std::array kKinds = {
    Kind{"%PDF-"sv,
         {TrLater("It is a PDF document."), TrLater("Save its text as a text file (.txt) and count that.")}},
    Kind{"\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"sv,
         {TrLater("It is a document of an old office program, such as .doc."),
          TrLater("Save it as a Word document (.docx) or as text and count that.")}},
    Kind{"{\\rtf"sv,
         {"", TrLater("Open it in a word processor and save it as a Word document (.docx) or as text.")}},
    Kind{"KORVRUN\x1A"sv,
         {TrLater("It is a kept run."), TrLater("Open it with \"Open kept run...\" in the window of Korv.")}},
    Kind{"\xFF\xFE"sv, kWide},
    Kind{"\xFE\xFF"sv, kWide},
    Kind{"\0\0\xFE\xFF"sv, kWide},
    Kind{"\x1F\x8B"sv, kPacked},
    Kind{"BZh"sv, kPacked},
    Kind{"\xFD"
         "7zXZ\0"sv,
         kPacked},
    Kind{"\x28\xB5\x2F\xFD"sv, kPacked},
    Kind{"7z\xBC\xAF\x27\x1C"sv, kPacked},
    Kind{"Rar!\x1A\x07"sv, kPacked},
    Kind{"\x89PNG\r\n\x1A\n"sv, kPicture},
    Kind{"\xFF\xD8\xFF"sv, kPicture},
    Kind{"GIF8"sv, kPicture},
    Kind{"II*\0"sv, kPicture},
    Kind{"MM\0*"sv, kPicture},
};

/// Zip archives: the names of what they hold stand in their beginning.
constexpr std::string_view kZip = "PK\x03\x04";
constexpr std::array kZipKinds = {
    Kind{"word/"sv,
         {TrLater("It is a Word document."),
          TrLater("Give it a name that ends in .docx and count it again.")}},
    Kind{"application/epub+zip"sv,
         {TrLater("It is an e-book."), TrLater("Convert it to text (.txt) or HTML and count that.")}},
    Kind{"application/vnd.oasis.opendocument.text"sv,
         {TrLater("It is an OpenDocument text."),
          TrLater("Save it as a Word document (.docx) or as text and count that.")}},
    Kind{"application/vnd.oasis.opendocument"sv,
         {TrLater("It is an OpenDocument file without running text."),
          TrLater("Save what is to be counted as text.")}},
    Kind{"xl/"sv,
         {TrLater("It is a spreadsheet."), TrLater("Save the sheet as text (.csv or .txt) and count that.")}},
    Kind{"ppt/"sv,
         {TrLater("It is a presentation."), TrLater("Save its text as a text file (.txt) and count that.")}},
};

constexpr Advice kOtherZip{TrLater("It is a zip archive."),
                           TrLater("Unpack it into a folder and count the folder.")};

const Advice* AdviceOfZip(std::string_view head) {
  const auto inner =
      std::ranges::find_if(kZipKinds, [&](const Kind& kind) { return head.find(kind.Bytes) != head.npos; });
  return inner == kZipKinds.end() ? &kOtherZip : &inner->Says;
}

/// Wide text without a signature: every other byte of European text is 0.
bool LooksWide(std::string_view head) {
  constexpr size_t kLookedAt = 512;
  constexpr size_t kMany = 4;
  head = head.substr(0, kLookedAt);
  std::array<size_t, 2> zeros{};
  for (size_t at = 0; at < head.size(); ++at) zeros[at % 2] += head[at] == '\0';
  const auto [few, many] = std::minmax(zeros[0], zeros[1]);
  return head.size() >= 2 && few == 0 && many * kMany > head.size();
}

const Advice* AdviceOn(std::string_view head) {
  if (head.starts_with(kZip)) return AdviceOfZip(head);
  const auto found =
      std::ranges::find_if(kKinds, [&](const Kind& kind) { return head.starts_with(kind.Bytes); });
  if (found != kKinds.end()) return &found->Says;
  return LooksWide(head) ? &kWide : nullptr;
}

std::string Sentences(const char* first, const char* second) {
  const std::string told = Tr(first);
  return told + (told.empty() ? "" : "  ") + Tr(second);
}

}  // namespace

std::string ForeignKindAdvice(std::string_view head) {
  const Advice* advice = AdviceOn(head);
  return advice == nullptr ? std::string() : Sentences(advice->What, advice->ToDo);
}

std::string ForeignListAdvice(std::string_view head) {
  const Advice* advice = AdviceOn(head);
  if (advice == nullptr) return {};
  return Sentences(advice->What,
                   std::string_view(advice->What) == kWide.What
                       ? kWide.ToDo
                       : TrLater("Save the words as a text file (.txt) with one entry a line."));
}

}  // namespace korv
