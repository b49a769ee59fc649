#include "report/writers/xlsx_book.h"

#include <xlsxwriter.h>
#ifndef _WIN32
#include <locale.h>
#endif

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <system_error>
#include <utility>
#include <vector>

#include "base/translation.h"
#include "platform/zip.h"

namespace korv {

namespace {

/// The library writes numbers as the locale of the thread has them, and its files must have points. While it
/// lives, the locale is that of C. (On Windows the library has a way of its own to write numbers.)
class PlainNumbers {
 public:
#ifdef _WIN32
  PlainNumbers() {}
#else
  PlainNumbers() : plain_(::newlocale(LC_ALL_MASK, "C", nullptr)), before_(::uselocale(plain_)) {}
  ~PlainNumbers() {
    ::uselocale(before_);
    ::freelocale(plain_);
  }
  PlainNumbers(const PlainNumbers&) = delete;
  PlainNumbers& operator=(const PlainNumbers&) = delete;

 private:
  locale_t plain_;
  locale_t before_;
#endif
};

constexpr std::string_view kSheetEnd = "</worksheet>";

FileError Incomplete() {
  return {FileFault::NoSpace,
          Tr("The workbook could not be written whole. Is there room for temporary files?")};
}

/// What the library says; the system's word where it has one.
FileError ErrorOf(lxw_error error) {
  if (errno == 0) return {FileFault::Other, lxw_strerror(error)};
  const std::error_code code(errno, std::generic_category());
  const bool full = code == std::errc::no_space_on_device || code == std::errc::file_too_large;
  return {full ? FileFault::NoSpace : FileFault::Other, code.message()};
}

/// Of the form that FormatUtc() writes; 0 for any other.
time_t ParseUtc(const std::string& text) {
  int year = 0;
  unsigned month = 0, day = 0, hour = 0, minute = 0, second = 0;
  if (std::sscanf(text.c_str(), "%d-%u-%uT%u:%u:%uZ", &year, &month, &day, &hour, &minute, &second) != 6)
    return 0;
  using namespace std::chrono;
  const sys_days date = std::chrono::year(year) / std::chrono::month(month) / std::chrono::day(day);
  return system_clock::to_time_t(date + hours(hour) + minutes(minute) + seconds(second));
}

/// Reads a sheet of a finished book to its end: whether it has one, and `least` bytes.
bool SheetIsWhole(ZipArchive& book, size_t number, uint64_t least) {
  auto sheet = book.Open("xl/worksheets/sheet" + std::to_string(number) + ".xml");
  if (!sheet) return false;
  std::vector<char> piece(size_t{1} << 18);
  std::string end;
  uint64_t bytes = 0;
  for (;;) {
    const auto got = sheet->Read(piece);
    if (!got) return false;
    if (*got == 0) return bytes >= least && end.ends_with(kSheetEnd);
    bytes += *got;
    end.append(piece.data(), *got);
    end.erase(0, end.size() - std::min(end.size(), kSheetEnd.size()));
  }
}

}  // namespace

struct XlsxBook::Parts {
  struct Free {
    void operator()(lxw_workbook* book) const {
      // Only a book that is closed closes the files of its sheets.
      lxw_sheet* sheet = nullptr;
      STAILQ_FOREACH(sheet, book->sheets, list_pointers)
      if (FILE* const rows = sheet->u.worksheet->optimize_tmpfile) std::fclose(rows);
      lxw_workbook_free(book);
    }
  };

  std::unique_ptr<lxw_workbook, Free> Book;
  lxw_worksheet* Sheet = nullptr;  ///< The book's, as the formats are.
  FILE* Rows = nullptr;            ///< Where the library keeps those of the sheet.
  lxw_format* Bold = nullptr;
  lxw_format* Whole = nullptr;
  lxw_format* Real = nullptr;
  /// Bytes of its rows that each sheet has at least.
  std::vector<uint64_t> Bytes;
};

XlsxBook::XlsxBook(const std::filesystem::path& file, const std::filesystem::path& folder)
    : file_(file), folder_(PathForLibraries(folder)), parts_(std::make_unique<Parts>()) {
  lxw_workbook_options options{};
  options.constant_memory = LXW_TRUE;
  options.tmpdir = folder_.data();
  options.use_zip64 = LXW_TRUE;
  parts_->Book.reset(workbook_new_opt(PathForLibraries(file).c_str(), &options));
  lxw_workbook* const book = parts_->Book.get();
  if (book == nullptr) {
    Check(LXW_ERROR_MEMORY_MALLOC_FAILED);
    return;
  }
  parts_->Bold = workbook_add_format(book);
  format_set_bold(parts_->Bold);
  parts_->Whole = workbook_add_format(book);
  format_set_num_format(parts_->Whole, "0");
  parts_->Real = workbook_add_format(book);
  format_set_num_format(parts_->Real, "0.00");
}

XlsxBook::~XlsxBook() = default;

void XlsxBook::Describe(const std::string& title, const std::string& made) {
  if (fault_) return;
  std::string text = title;
  lxw_doc_properties properties{};
  properties.title = text.data();
  properties.created = ParseUtc(made);
  Check(workbook_set_properties(parts_->Book.get(), &properties));
}

void XlsxBook::AddSheet(const std::string& name) {
  CheckSheet();
  if (fault_) return;
  errno = 0;
  parts_->Sheet = workbook_add_worksheet(parts_->Book.get(), name.c_str());
  parts_->Rows = parts_->Sheet == nullptr ? nullptr : parts_->Sheet->optimize_tmpfile;
  if (parts_->Rows == nullptr) return Check(LXW_ERROR_CREATING_TMPFILE);
  parts_->Bytes.push_back(0);
}

void XlsxBook::SetWidth(int column, double characters) {
  if (fault_) return;
  const auto number = static_cast<lxw_col_t>(column);
  Check(worksheet_set_column(parts_->Sheet, number, number, characters, nullptr));
}

void XlsxBook::MakeHeading(uint32_t lastRow, int lastColumn) {
  if (fault_) return;
  worksheet_freeze_panes(parts_->Sheet, 1, 0);
  Check(worksheet_autofilter(parts_->Sheet, 0, 0, lastRow, static_cast<lxw_col_t>(lastColumn)));
}

void XlsxBook::PutText(uint32_t row, int column, const std::string& text, Weight weight) {
  if (fault_) return;
  const PlainNumbers plain;
  Check(worksheet_write_string(parts_->Sheet, row, static_cast<lxw_col_t>(column), text.c_str(),
                               weight == Weight::Bold ? parts_->Bold : nullptr));
}

void XlsxBook::PutWhole(uint32_t row, int column, int64_t value) {
  if (fault_) return;
  const PlainNumbers plain;
  Check(worksheet_write_number(parts_->Sheet, row, static_cast<lxw_col_t>(column), static_cast<double>(value),
                               parts_->Whole));
}

void XlsxBook::PutReal(uint32_t row, int column, double value) {
  if (fault_) return;
  const PlainNumbers plain;
  Check(worksheet_write_number(parts_->Sheet, row, static_cast<lxw_col_t>(column), value, parts_->Real));
}

void XlsxBook::Close(FileSystem& files) {
  CheckSheet();
  if (fault_) return;
  const PlainNumbers plain;
  errno = 0;
  // Frees the book, whatever comes of it.
  Check(workbook_close(parts_->Book.release()));
  if (!fault_) CheckWritten(files);
}

void XlsxBook::Check(int error) {
  if (fault_) return;
  if (error != LXW_NO_ERROR)
    fault_ = ErrorOf(static_cast<lxw_error>(error));
  else if (parts_->Rows != nullptr && std::ferror(parts_->Rows))
    fault_ = Incomplete();
}

void XlsxBook::CheckSheet() {
  if (fault_ || parts_->Rows == nullptr) return;
  if (std::fflush(parts_->Rows) != 0) {
    fault_ = Incomplete();
    return;
  }
  parts_->Bytes.back() = static_cast<uint64_t>(ftello(parts_->Rows));
  parts_->Rows = nullptr;
}

void XlsxBook::CheckWritten(FileSystem& files) {
  auto file = files.OpenForReading(file_);
  if (!file) {
    fault_ = file.Error();
    return;
  }
  auto book = OpenZipArchive(std::move(*file));
  if (!book) {
    fault_ = Incomplete();
    return;
  }
  for (size_t s = 0; s < parts_->Bytes.size() && !fault_; ++s)
    if (!SheetIsWhole(*book, s + 1, parts_->Bytes[s])) fault_ = Incomplete();
}

}  // namespace korv
