#include "wordlists/word_file_list.h"

#include <algorithm>
#include <utility>

#include "base/translation.h"
#include "engine/text/unicode.h"
#include "wordlists/questions.h"

namespace korv {

namespace {

std::string_view Trimmed(std::string_view text) {
  const size_t begin = text.find_first_not_of(' ');
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(' ') + 1 - begin);
}

void SayAlreadyPresent(Messages& messages, std::string_view path) {
  messages.Show({.Text = Fill(Tr("%1\nis already in this list. If the file has changed\n"
                                 "select it from the drop-down list and reload it."),
                              {path}),
                 .Title = Tr("Already present"),
                 .Icon = Icon::Information});
}

}  // namespace

std::string WordFileList::SelectedPath() const {
  return selected_ == kNone ? std::string() : paths_[static_cast<size_t>(selected_)];
}

void WordFileList::Select(int index) {
  selected_ = index >= 0 && static_cast<size_t>(index) < paths_.size() ? index : kNone;
}

int WordFileList::Find(std::string_view path) const {
  const std::string wanted = LowerText(path);
  const auto found = std::find_if(paths_.begin(), paths_.end(),
                                  [&](const std::string& known) { return LowerText(known) == wanted; });
  return found == paths_.end() ? kNone : static_cast<int>(found - paths_.begin());
}

bool WordFileList::MayGrow(Messages& messages) const {
  if (paths_.size() < kMostFiles) return true;
  messages.Show(
      {.Text = Tr("No more files may be added to this list."), .Title = "Korv", .Icon = Icon::Exclamation});
  return false;
}

bool WordFileList::Add(std::string_view path, Messages& messages) {
  path = Trimmed(path);
  if (path.empty()) return false;
  if (Find(path) != kNone) {
    SayAlreadyPresent(messages, path);
    return false;
  }
  if (!MayGrow(messages)) return false;
  const auto place = sorted_ ? std::lower_bound(paths_.begin(), paths_.end(), path,
                                                [](const std::string& known, std::string_view added) {
                                                  return LowerText(known) < LowerText(added);
                                                })
                             : paths_.begin();
  const auto added = paths_.emplace(place, path);
  selected_ = static_cast<int>(added - paths_.begin());
  return true;
}

bool WordFileList::AddOrSelect(std::string_view path, Messages& messages) {
  const int known = Find(Trimmed(path));
  if (known == kNone) return Add(path, messages);
  selected_ = known;
  return true;
}

void WordFileList::RemoveSelected() {
  if (selected_ == kNone) return;
  paths_.erase(paths_.begin() + selected_);
  selected_ = kNone;
}

void WordFileList::Clear() {
  paths_.clear();
  selected_ = kNone;
}

bool WordFileList::AskToClear(Messages& messages) {
  const Answer answer =
      messages.Show({.Text = Tr("Do you wish to remove ALL files from this list?"),
                     .Title = kind_ == ListKind::WordsToIgnore ? Tr("Clear words-to-ignore files")
                                                               : Tr("Clear count-only words files"),
                     .Icon = Icon::Question,
                     .Buttons = Buttons::YesNo,
                     .DefaultAnswer = Answer::No,
                     .Question = questions::kClearWordFiles});
  if (answer != Answer::Yes) return false;
  Clear();
  return true;
}

void WordFileList::Restore(std::vector<std::string> paths, int selected) {
  paths_ = std::move(paths);
  if (paths_.size() > kMostFiles) paths_.resize(kMostFiles);
  Select(selected);
}

}  // namespace korv
