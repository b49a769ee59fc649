#include <algorithm>
#include <array>

#include "base/translation.h"
#include "sources/questions.h"
#include "sources/read/docx.h"
#include "sources/read/xml_text.h"

namespace korv {

namespace {

constexpr auto kNone = std::string_view::npos;
constexpr std::string_view kBreak = "\r\n";

// Appends a run's text with every kind of line end as CR LF.
void AppendRun(std::string_view run, std::string& text) {
  while (!run.empty()) {
    const size_t plain = std::min(run.find_first_of(kBreak), run.size());
    text.append(run, 0, plain);
    run.remove_prefix(plain);
    if (run.empty()) break;
    text += kBreak;
    run.remove_prefix(run.starts_with(kBreak) ? 2 : 1);
  }
}

// Puts the pieces of a paragraph together.
class TextBuilder {
 public:
  void Run(std::string_view run) {
    if (run.empty()) return;
    Join();
    decoded_.clear();
    AppendXmlDecoded(run, decoded_);
    AppendRun(decoded_, text_);
  }
  void Hyphen() {
    Join();
    text_ += '-';
  }
  // A tab is a blank between two pieces of text; before the first and after the last it is nothing.
  void Tab() { tab_ = onLine_; }
  void Break() {
    text_ += kBreak;
    onLine_ = false;
    tab_ = false;
  }
  // A paragraph may stand inside another one, in a text box.
  void BeginParagraph() {
    if (onLine_) Break();
  }
  std::string Finish() { return std::move(text_); }

 private:
  void Join() {
    if (tab_) text_ += ' ';
    tab_ = false;
    onLine_ = true;
  }

  std::string text_;
  std::string decoded_;  // A run's; kept for its memory.
  bool onLine_ = false;
  bool tab_ = false;
};

// What stands in these stands elsewhere in the document too: a text box for older programs, and the place
// that text was moved away from.
constexpr std::array<std::string_view, 2> kPassedOver = {"mc:Fallback", "w:moveFrom"};

// Walks the tags that matter. Every step goes forward, so the whole is linear in the document.
class RunReader {
 public:
  RunReader(std::string_view xml, TextBuilder& builder) : xml_(xml), builder_(builder) {}

  size_t Position() const { return at_; }

  // Goes past the next tag; false at the end.
  bool Step() {
    at_ = xml_.find('<', at_);
    if (at_ == kNone) return false;
    const std::string_view rest = xml_.substr(at_);
    if (depth_ > 0) return PassOver(rest);
    for (const std::string_view name : kPassedOver) {
      if (!Opens(rest, name)) continue;
      passedOver_ = name;
      return PassOver(rest);
    }
    if (rest.starts_with("<w:t ") || rest.starts_with("<w:t>")) return Run();
    if (rest.starts_with("</w:p>") || IsXmlTag(rest, "<w:br") || IsXmlTag(rest, "<w:cr"))
      builder_.Break();
    else if (IsXmlTag(rest, "<w:p"))
      builder_.BeginParagraph();
    else if (IsXmlTag(rest, "<w:tab") || IsXmlTag(rest, "<w:ptab"))
      builder_.Tab();
    else if (IsXmlTag(rest, "<w:noBreakHyphen"))
      builder_.Hyphen();
    ++at_;
    return true;
  }

 private:
  static bool Opens(std::string_view rest, std::string_view name) { return IsXmlTag(rest.substr(1), name); }

  // Counts how deep in elements of the name that is passed over the tag leads; one without an end reaches
  // to the end of the document.
  bool PassOver(std::string_view rest) {
    if (Opens(rest, passedOver_)) {
      const size_t close = XmlTagEnd(xml_, at_);
      if (close == kNone) return false;
      if (xml_[close - 1] != '/') ++depth_;
      at_ = close;
    } else if (rest.starts_with("</") && Opens(rest.substr(1), passedOver_)) {
      --depth_;
    }
    ++at_;
    return true;
  }

  // A run without an end, at the end of a document that is cut off, is no run.
  bool Run() {
    const size_t close = XmlTagEnd(xml_, at_);
    if (close == kNone) return false;
    if (xml_[close - 1] == '/') {
      at_ = close + 1;
      return true;
    }
    const size_t end = xml_.find("</w:t>", close);
    if (end == kNone) return false;
    builder_.Run(xml_.substr(close + 1, end - close - 1));
    at_ = end + 6;
    return true;
  }

  std::string_view xml_;
  TextBuilder& builder_;
  size_t at_ = 0;
  std::string_view passedOver_;  // The element that is passed over, while depth_ is above 0.
  size_t depth_ = 0;
};

bool StopConfirmed(const DocxContext& context) {
  const Answer answer = context.Messages.Show({.Text = Tr("Many different words have been found.\n"
                                                          "Do you really wish to stop?"),
                                               .Title = Tr("Stop"),
                                               .Icon = Icon::Question,
                                               .Buttons = Buttons::YesNo,
                                               .DefaultAnswer = Answer::No,
                                               .Question = questions::kStopDocx});
  if (answer == Answer::Yes) return true;
  context.Yielder.ClearStop();
  return false;
}

}  // namespace

std::string DocxProgressBar(size_t done, size_t total) {
  constexpr size_t kWidth = 40;
  const size_t filled = total == 0 ? kWidth : std::min(done, total) * kWidth / total;
  return "[" + std::string(filled, '-') + ">" + std::string(kWidth - filled, ' ') + "]";
}

std::string DocxXmlToText(std::string_view xml, const DocxContext& context,
                          const std::function<void(const std::string&)>& progress) {
  constexpr size_t kShowsProgress = 1000000;
  const size_t step = xml.size() / 40;
  size_t next = xml.size() > kShowsProgress && progress ? 0 : kNone;
  TextBuilder builder;
  RunReader reader(xml, builder);
  while (reader.Step()) {
    context.Yielder.Yield();
    if (context.Yielder.Stopped() && StopConfirmed(context)) break;
    if (reader.Position() >= next) {
      progress(DocxProgressBar(reader.Position(), xml.size()));
      next += step;
    }
  }
  return builder.Finish();
}

}  // namespace korv
