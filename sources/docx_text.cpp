#include <algorithm>
#include <array>

#include "sources/docx.h"

namespace korv {

namespace {

constexpr auto npos = std::string_view::npos;
constexpr std::string_view kBreak = "\r\n";

// What ends a tag's name.
bool EndsName(char c) {
  return c == '>' || c == '/' || c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// Appends a run's text: the three entities decoded once, every kind of line end as CR LF.
void AppendRun(std::string_view run, std::string& text) {
  struct Entity {
    std::string_view name;
    char character;
  };
  static constexpr std::array<Entity, 3> kEntities = {{{"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}}};
  while (!run.empty()) {
    const size_t plain = std::min(run.find_first_of("&\r\n"), run.size());
    text.append(run, 0, plain);
    run.remove_prefix(plain);
    if (run.empty()) break;
    if (run[0] != '&') {
      text += kBreak;
      run.remove_prefix(run.starts_with(kBreak) ? 2 : 1);
      continue;
    }
    const auto entity =
        std::ranges::find_if(kEntities, [&](const Entity& e) { return run.starts_with(e.name); });
    text += entity == kEntities.end() ? '&' : entity->character;
    run.remove_prefix(entity == kEntities.end() ? 1 : entity->name.size());
  }
}

// Puts the pieces of a paragraph together.
class TextBuilder {
 public:
  void Run(std::string_view run) {
    if (run.empty()) return;
    Join();
    AppendRun(run, text_);
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
  std::string Finish() { return std::move(text_); }

 private:
  void Join() {
    if (tab_) text_ += ' ';
    tab_ = false;
    onLine_ = true;
  }

  std::string text_;
  bool onLine_ = false;
  bool tab_ = false;
};

// Walks the tags that matter. Every step goes forward, so the whole is linear in the document.
class RunReader {
 public:
  RunReader(std::string_view xml, TextBuilder& builder) : xml_(xml), builder_(builder) {}

  size_t Position() const { return at_; }

  // Goes past the next tag; false at the end.
  bool Step() {
    at_ = xml_.find('<', at_);
    if (at_ == npos) return false;
    const std::string_view rest = xml_.substr(at_);
    if (rest.starts_with("<w:t ") || rest.starts_with("<w:t>")) return Run();
    if (rest.starts_with("</w:p>") || IsTag(rest, "<w:br") || IsTag(rest, "<w:cr"))
      builder_.Break();
    else if (IsTag(rest, "<w:tab"))
      builder_.Tab();
    else if (IsTag(rest, "<w:noBreakHyphen"))
      builder_.Hyphen();
    ++at_;
    return true;
  }

 private:
  static bool IsTag(std::string_view rest, std::string_view start) {
    return rest.starts_with(start) && rest.size() > start.size() && EndsName(rest[start.size()]);
  }

  // A run without an end, at the end of a document that is cut off, is no run.
  bool Run() {
    const size_t close = TagEnd(at_);
    if (close == npos) return false;
    if (xml_[close - 1] == '/') {
      at_ = close + 1;
      return true;
    }
    const size_t end = xml_.find("</w:t>", close);
    if (end == npos) return false;
    builder_.Run(xml_.substr(close + 1, end - close - 1));
    at_ = end + 6;
    return true;
  }

  // The ">" of the tag at `at`; one inside a quoted value does not count.
  size_t TagEnd(size_t at) const {
    char quote = 0;
    for (; at < xml_.size(); ++at) {
      const char c = xml_[at];
      if (quote != 0)
        quote = c == quote ? '\0' : quote;
      else if (c == '"' || c == '\'')
        quote = c;
      else if (c == '>')
        return at;
    }
    return npos;
  }

  std::string_view xml_;
  TextBuilder& builder_;
  size_t at_ = 0;
};

bool StopConfirmed(const DocxContext& context) {
  const Answer answer = context.Messages.Show({.text = "Many different words have been found.\r\n"
                                                       "Do you really wish to stop?",
                                               .title = "Stop",
                                               .icon = Icon::Question,
                                               .buttons = Buttons::YesNo,
                                               .defaultAnswer = Answer::No,
                                               .question = Question::StopDocx});
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
  size_t next = xml.size() > kShowsProgress && progress ? 0 : npos;
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
