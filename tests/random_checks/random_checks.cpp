#include "tests/random_checks/random_checks.h"

#include <algorithm>
#include <charconv>
#include <exception>
#include <map>
#include <system_error>

namespace korv::random_checks {
namespace {

constexpr int kLargest = 100;
constexpr int64_t kMostDiscardedPerCase = 10;
/// A case that is discarded so often is drawn larger: there may be no other of its size.
constexpr int kDiscardedPerSize = 10;

Case* current = nullptr;

class Running {
 public:
  explicit Running(Case& now) { current = &now; }
  ~Running() { current = nullptr; }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;
};

int SizeOf(int held, int discarded, int cases) {
  const int64_t size = cases == 1 ? kLargest : int64_t{kLargest} * held / (cases - 1);
  return static_cast<int>(std::min<int64_t>(kLargest, size + discarded / kDiscardedPerSize));
}

template <typename T>
T ReadNumber(const std::string& setting, size_t from) {
  T number = 0;
  const char* const end = setting.data() + setting.size();
  const auto [stop, error] = std::from_chars(setting.data() + from, end, number);
  if (error != std::errc() || stop != end) throw std::invalid_argument("no number in RC_PARAMS: " + setting);
  return number;
}

}  // namespace

Case& CurrentCase() {
  if (current == nullptr) throw std::logic_error("random values are for properties alone");
  return *current;
}

void Require(bool holds, const char* expression, const char* file, int line) {
  if (holds) return;
  throw Falsified(std::string(file) + ':' + std::to_string(line) + ": RC_ASSERT(" + expression + ')');
}

Settings ReadSettings(std::string_view text) {
  Settings settings;
  std::random_device device;
  settings.Seed = uint64_t{device()} << 32 | device();
  std::istringstream words{std::string(text)};
  for (std::string setting; words >> setting;) {
    const size_t value = setting.find('=') + 1;
    if (setting.starts_with("max_success=")) {
      settings.Cases = ReadNumber<int>(setting, value);
      if (settings.Cases < 1) throw std::invalid_argument("RC_PARAMS asks for no cases: " + setting);
    } else if (setting.starts_with("seed=")) {
      settings.Seed = ReadNumber<uint64_t>(setting, value);
    } else {
      throw std::invalid_argument("unknown in RC_PARAMS: " + setting);
    }
  }
  return settings;
}

Outcome Check(const std::function<void()>& property, const Settings& settings) {
  std::mt19937_64 numbers(settings.Seed);
  std::map<std::string, int> tags;
  int held = 0;
  int64_t discarded = 0;
  std::ostringstream report;
  const auto failed = [&](const Case& now, const std::string& why) -> Outcome {
    report << "Case " << held + 1 << ", of size " << now.Size << ", does not hold: " << why << '\n'
           << now.Log.str() << "RC_PARAMS=\"max_success=" << settings.Cases << " seed=" << settings.Seed
           << "\" repeats it.\n";
    return {false, report.str()};
  };
  for (int inVain = 0; held < settings.Cases;) {
    Case now{numbers, SizeOf(held, inVain, settings.Cases), {}, {}};
    const Running running(now);
    try {
      property();
    } catch (const Discarded& e) {
      ++inVain;
      if (++discarded > settings.Cases * kMostDiscardedPerCase) {
        return failed(now, "too many were discarded, the last by " + std::string(e.what()));
      }
      continue;
    } catch (const std::exception& e) {
      return failed(now, e.what());
    } catch (...) {
      return failed(now, "it throws what is no std::exception");
    }
    ++held;
    inVain = 0;
    for (const std::string& tag : now.Tags) ++tags[tag];
  }
  report << held << " cases of seed " << settings.Seed << " held, " << discarded << " were discarded";
  for (const auto& [tag, count] : tags) report << "; " << tag << ": " << count;
  report << '\n';
  return {true, report.str()};
}

}  // namespace korv::random_checks
