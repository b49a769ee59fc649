#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>

#include "app/texts/program_folder.h"
#include "base/translation.h"
#include "cli/count_program.h"
#include "cli/options.h"
#include "platform/interrupts.h"
#include "platform/process.h"

namespace {

int Count(int argc, char** argv) {
  using namespace korv;
  std::ios::sync_with_stdio(false);
  const StandardStreams streams;
  const std::unique_ptr<FileSystem> files = MakeSystemFiles();
  ConsoleYielder yielder;
  const InterruptGuard interrupts(yielder);
  const SystemClock clock;
  const std::unique_ptr<CodePage> encoding = SystemCodePage();
  const std::filesystem::path folder = ProgramFolder(*files, ExecutablePath(argv[0]));
  UseTranslations(folder / kTranslationsName);
  const std::unique_ptr<InputFile> input = OpenStandardInput(yielder);
  return KorvCount(ProgramArguments(argc, argv), {.Files = *files,
                                                  .Yielder = yielder,
                                                  .Clock = clock,
                                                  .StandardInput = *input,
                                                  .Out = std::cout,
                                                  .Err = std::cerr,
                                                  .ErrIsTerminal = StandardErrorIsTerminal(),
                                                  .ProgramFolder = folder,
                                                  .Encoding = encoding.get(),
                                                  .InputPath = StandardInputPath(),
                                                  .OutColumns = OutputColumns(),
                                                  .ExpandsPatterns = !ShellExpandsPatterns()});
}

[[noreturn]] void EndForLackOfMemory() noexcept {
  // Streams may want memory themselves.
  std::fputs("korv-count: ", stderr);
  std::fputs(korv::Tr("Insufficient memory"), stderr);
  std::fputs("\n", stderr);
  korv::EndProcess(korv::kExitRefused);
}

std::atomic<bool> memoryRanOut{false};

[[noreturn]] void OnLackOfMemory() {
  memoryRanOut = true;
  throw std::bad_alloc();
}

// Destructors and some functions of libraries let no exception through.
[[noreturn]] void OnTerminate() {
  if (memoryRanOut) EndForLackOfMemory();
  std::abort();
}

}  // namespace

int main(int argc, char** argv) {
  std::set_new_handler(OnLackOfMemory);
  std::set_terminate(OnTerminate);
  try {
    return Count(argc, argv);
  } catch (const std::bad_alloc&) {
    EndForLackOfMemory();
  }
}
