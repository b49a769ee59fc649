#include "sources/detect/foreign_kind.h"

#include <algorithm>
#include <array>

namespace korv {

namespace {

using namespace std::string_view_literals;

struct Advice {
  std::string_view What;
  std::string_view ToDo;  ///< With a text that is to be counted.
};

struct Kind {
  std::string_view Bytes;  ///< What such files begin with.
  Advice Says;
};

constexpr Advice kPicture{"It is a picture.",
                          "The words in it must first be recognised by a program for scanned pages."};
constexpr Advice kWide{"It is text in UTF-16 or UTF-32.",
                       "Open it in an editor and save it with the encoding UTF-8."};
constexpr Advice kPacked{"It is a packed file.", "Unpack it first and count what comes out."};

constexpr std::array kKinds = {
    Kind{"%PDF-"sv, {"It is a PDF document.", "Save its text as a text file (.txt) and count that."}},
    Kind{"\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"sv,
         {"It is a document of an old office program, such as .doc.",
          "Save it as a Word document (.docx) or as text and count that."}},
    Kind{"{\\rtf"sv, {"", "Open it in a word processor and save it as a Word document (.docx) or as text."}},
    Kind{"KORVRUN\x1A"sv, {"It is a kept run.", "Open it with \"Open kept run...\" in the window of Korv."}},
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
    Kind{"word/"sv, {"It is a Word document.", "Give it a name that ends in .docx and count it again."}},
    Kind{"application/epub+zip"sv, {"It is an e-book.", "Convert it to text (.txt) or HTML and count that."}},
    Kind{"application/vnd.oasis.opendocument.text"sv,
         {"It is an OpenDocument text.", "Save it as a Word document (.docx) or as text and count that."}},
    Kind{"application/vnd.oasis.opendocument"sv,
         {"It is an OpenDocument file without running text.", "Save what is to be counted as text."}},
    Kind{"xl/"sv, {"It is a spreadsheet.", "Save the sheet as text (.csv or .txt) and count that."}},
    Kind{"ppt/"sv, {"It is a presentation.", "Save its text as a text file (.txt) and count that."}},
};

constexpr Advice kOtherZip{"It is a zip archive.", "Unpack it into a folder and count the folder."};

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

std::string Sentences(std::string_view first, std::string_view second) {
  return std::string(first) + (first.empty() ? "" : "  ") + std::string(second);
}

}  // namespace

std::string ForeignKindAdvice(std::string_view head) {
  const Advice* advice = AdviceOn(head);
  return advice == nullptr ? std::string() : Sentences(advice->What, advice->ToDo);
}

std::string ForeignListAdvice(std::string_view head) {
  const Advice* advice = AdviceOn(head);
  if (advice == nullptr) return {};
  return Sentences(advice->What, advice->What == kWide.What
                                     ? kWide.ToDo
                                     : "Save the words as a text file (.txt) with one entry a line.");
}

}  // namespace korv
