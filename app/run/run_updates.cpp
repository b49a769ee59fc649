#include "app/run/run_updates.h"

#include <algorithm>
#include <utility>

namespace korv {

std::optional<std::string> RunUpdates::ChooseOutputFile() {
  Flush();
  using Path = std::optional<std::string>;
  return calls_.Ask<Path>([&window = window_] { return window.ChooseOutputFile(); }).value_or(std::nullopt);
}

void RunUpdates::Add(Update update) {
  {
    const std::lock_guard lock(mutex_);
    updates_.push_back(std::move(update));
  }
  Flush();
}

void RunUpdates::Replace(Update update) {
  const std::lock_guard lock(mutex_);
  std::erase_if(updates_, [&](const Update& before) { return before.What == update.What; });
  updates_.push_back(std::move(update));
}

void RunUpdates::Flush() {
  {
    const std::lock_guard lock(mutex_);
    if (updates_.empty() || onItsWay_) return;
    onItsWay_ = true;
  }
  calls_.Post([this] { Deliver(); });
}

void RunUpdates::Deliver() {
  std::vector<Update> updates;
  {
    const std::lock_guard lock(mutex_);
    onItsWay_ = false;
    updates.swap(updates_);
  }
  for (const Update& update : updates) Tell(update);
}

void RunUpdates::Tell(const Update& update) {
  switch (update.What) {
    case Kind::Status:
      return window_.Status(update.Text);
    case Kind::Notice:
      return window_.Notice(update.Text);
    case Kind::ClearOutput:
      return window_.ClearOutput();
    case Kind::InputFile:
      return window_.InputFile(update.Text);
    case Kind::Sizes:
      return window_.Sizes(update.Text, update.Second);
    case Kind::FileKind:
      return window_.FileKind(update.Text);
    case Kind::TextProgress:
      return window_.TextProgress(update.Text);
  }
}

}  // namespace korv
