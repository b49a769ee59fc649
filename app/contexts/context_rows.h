#pragma once

#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "app/contexts/context_list.h"
#include "app/contexts/context_texts.h"
#include "app/contexts/file_reading.h"
#include "base/newest_job.h"

namespace korv {

/// Fewest and most characters on each side of a phrase, and how many stand there at first.
inline constexpr int kLeastContext = 20;
inline constexpr int kMostContext = 500;
inline constexpr int kUsualContext = 80;

/// The text of a row. Until its file has been read, and where that cannot be, the words of the run stand
/// there, without line and column.
struct ContextText {
  PlaceInText Text;
  bool FromFile;
};

/// The texts of the rows of a list of contexts, made when they are wanted: at once from the words of the run,
/// and a little later, read on a worker, as the files have them. Those read last are kept, kMostKept at most.
///
/// Belongs to the thread of the event loop.
class ContextRows {
 public:
  static constexpr size_t kMostKept = 2000;

  /// Both outlive this.
  ContextRows(EventLoop& loop, FileSystem& files)
      : reading_(std::make_shared<FileReading>(files)), reader_(loop) {}

  /// Some texts came. Called by the loop.
  std::function<void()> Came = [] {};

  /// The list whose rows are wanted from here on; null for none. What was read of the same phrase is kept.
  void Show(std::shared_ptr<const ContextList> list);
  /// Most code points on each side.
  void SetAround(size_t around);
  size_t Around() const { return around_; }

  /// Of a place of the list. Costs as much as WordsAround() where the file has not been read.
  ContextText Text(Place place);
  /// Reads these places of the list, `inSight` first, then `near`, unless that is being done. What was wanted
  /// before and has not been read is not wanted any more.
  void Want(std::vector<Place> inSight, std::vector<Place> near);
  /// Texts met so far of which nothing could be read, or not what was counted.
  const ChangedTexts& Changed() const { return changed_; }
  bool Idle() const { return reader_.Idle(); }

 private:
  using Read = std::pair<Place, Expected<PlaceInText, PlaceFault>>;
  /// Kept texts, the one used last in front.
  using Kept = std::list<std::pair<Place, std::optional<PlaceInText>>>;

  void Forget();
  void Keep(const std::vector<Read>& read);

  std::shared_ptr<const ContextList> list_;
  size_t around_ = kUsualContext;
  Kept kept_;
  std::unordered_map<Place, Kept::iterator> where_;
  ChangedTexts changed_;
  std::vector<Place> wanted_;             ///< What is being read.
  std::shared_ptr<FileReading> reading_;  ///< Used on the worker only.
  NewestJob reader_;
};

}  // namespace korv
