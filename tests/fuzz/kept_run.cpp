#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "tests/app/kept_world.h"

/// The file of a kept run from anywhere is refused, or is a run that can be shown in every way and kept
/// again. The checksum would end nearly every trial: the length and the checksum of the bytes stand in their
/// places.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace korv;
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  KeptWorld world;
  world.World.Files.Add("/t/a.txt", "The big cat sat. The big cat ran and the big dog sat.");
  if (world.OpenBytes(WithChecksum(WithLength(bytes)))) return 0;
  const std::string shown = ShownTexts(world.Opened, world.World.Files).All();
  std::swap(world.Opened, world.Result);
  world.World.Files.Erase(KeptWorld::kPath);
  if (!world.Keep() || world.Open()) std::abort();
  if (ShownTexts(world.Opened, world.World.Files).All() != shown) std::abort();
  return 0;
}
