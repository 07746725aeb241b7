#include "view/grid_workbook.h"

#include <unistd.h>
#include <xlsxwriter.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <set>

#include "platform/file_io.h"
#include "support/atomic_file.h"
#include "support/failure.h"
#include "support/numeric.h"
#include "support/text.h"
#include "support/utf8.h"
#include "view/grid_export.h"

namespace tabulon {

namespace {

constexpr std::size_t kNameLength = 31;
constexpr std::size_t kCellLength = 32767;
constexpr std::size_t kSheetRows = 1048576;
constexpr std::size_t kSheetCols = 16384;
constexpr std::size_t kSignificantDigits = 15;
constexpr double kWidestColumn = 60;

// text cut to at most length UTF-16 units, whole characters only.
std::string CutToUnits(const std::string& text, std::size_t length) {
    std::size_t units = 0;
    std::size_t pos = 0;
    while (pos < text.size()) {
        const std::size_t start = pos;
        const char32_t cp = DecodeUtf8(text, pos);
        units += cp != kInvalidUtf8 && cp > 0xFFFF ? 2 : 1;
        if (units > length) return text.substr(0, start);
    }
    return text;
}

std::string WithoutEdgeApostrophes(std::string name) {
    if (!name.empty() && name.front() == '\'') name.front() = '_';
    if (!name.empty() && name.back() == '\'') name.back() = '_';
    return name;
}

// The worksheet name for key (see the header's decisions); taken holds the names
// given so far, ASCII lower case, and gains this one.
std::string SheetName(const std::string& key, std::set<std::string>& taken) {
    std::string base;
    for (const char c : key)
        base += std::string_view("[]:*?/\\").find(c) == std::string::npos ? c : '_';
    if (base.empty()) base = "Sheet";
    std::string name = WithoutEdgeApostrophes(CutToUnits(base, kNameLength));
    for (int n = 2; taken.contains(ToLowerAscii(name)); ++n) {
        const std::string suffix = "~" + std::to_string(n);
        name = WithoutEdgeApostrophes(CutToUnits(base, kNameLength - suffix.size())) + suffix;
    }
    taken.insert(ToLowerAscii(name));
    return name;
}

// The number of decimals of a plain decimal number text (see the header); -1 for
// any other text.
int PlainDecimals(const std::string& text) {
    const std::size_t start = text.starts_with('-') ? 1 : 0;
    const std::size_t point = text.find('.', start);
    const std::size_t end = point == std::string::npos ? text.size() : point;
    const auto digits = [&](std::size_t from, std::size_t to) {
        return to > from && std::all_of(text.begin() + static_cast<std::ptrdiff_t>(from),
                                        text.begin() + static_cast<std::ptrdiff_t>(to),
                                        [](char c) { return c >= '0' && c <= '9'; });
    };
    if (!digits(start, end) || (text[start] == '0' && end - start > 1)) return -1;
    if (point != std::string::npos && !digits(point + 1, text.size())) return -1;
    const std::size_t first = text.find_first_of("123456789", start);
    const bool zero = first == std::string::npos;
    if (zero && start == 1) return -1;  // minus zero would show without its sign
    const std::size_t significant =
        zero ? 0 : text.size() - first - (point != std::string::npos && point > first ? 1 : 0);
    if (significant > kSignificantDigits) return -1;
    return point == std::string::npos ? 0 : static_cast<int>(text.size() - point - 1);
}

// Number formats by number of decimals, made when first needed.
class NumberFormats {
public:
    explicit NumberFormats(lxw_workbook* workbook) : workbook_(workbook) {}
    lxw_format* get(int decimals) {
        lxw_format*& format = formats_[decimals];
        if (format == nullptr) {
            format = workbook_add_format(workbook_);
            const std::string code =
                decimals == 0 ? "0" : "0." + std::string(static_cast<std::size_t>(decimals), '0');
            format_set_num_format(format, code.c_str());
        }
        return format;
    }

private:
    lxw_workbook* workbook_;
    std::map<int, lxw_format*> formats_;
};

void Check(lxw_error error, const std::string& file) {
    if (error != LXW_NO_ERROR) {
        throw RuntimeFailure("cannot write \"" + file + "\": " + lxw_strerror(error));
    }
}

void WriteSheet(lxw_worksheet* sheet, const CellTable& table, NumberFormats& formats,
                const std::string& file) {
    if (table.size() > kSheetRows) throw RuntimeFailure("a grid has more rows than a worksheet");
    std::vector<double> widths;
    for (std::size_t r = 0; r < table.size(); ++r) {
        if (table[r].size() > kSheetCols) {
            throw RuntimeFailure("a grid has more columns than a worksheet");
        }
        widths.resize(std::max(widths.size(), table[r].size()), 0);
        for (std::size_t c = 0; c < table[r].size(); ++c) {
            const std::string& text = table[r][c];
            const std::size_t length = CountUtf8(text);
            if (length > kCellLength) {
                throw RuntimeFailure(
                    "a cell holds more than 32,767 characters, more than a "
                    "worksheet cell takes");
            }
            widths[c] = std::max(widths[c], std::min(kWidestColumn, static_cast<double>(length)));
            const auto row = static_cast<lxw_row_t>(r);
            const auto col = static_cast<lxw_col_t>(c);
            const int decimals = PlainDecimals(text);
            Check(decimals >= 0 ? worksheet_write_number(sheet, row, col, ReadNumber(text),
                                                         formats.get(decimals))
                                : worksheet_write_string(sheet, row, col, text.c_str(), nullptr),
                  file);
        }
    }
    for (std::size_t c = 0; c < widths.size(); ++c) {
        const auto col = static_cast<lxw_col_t>(c);
        Check(worksheet_set_column(sheet, col, col, widths[c] + 2, nullptr), file);
    }
}

// A file in the temporary folder, removed with this object.
class ScratchFile {
public:
    ScratchFile() {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "tabulon-xlsx-XXXXXX").string();
        const int fd = ::mkstemp(pattern.data());
        if (fd < 0) throw RuntimeFailure("cannot make a scratch file in " + pattern);
        ::close(fd);
        path_ = pattern;
    }
    ~ScratchFile() {
        std::error_code ignored;
        std::filesystem::remove(path_, ignored);
    }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    const std::string& path() const { return path_; }

private:
    std::string path_;
};

}  // namespace

int ExportGridsAsXlsx(ControlCore& core, const std::string& file) {
    const ScratchFile scratch;
    std::unique_ptr<lxw_workbook, void (*)(lxw_workbook*)> workbook(
        workbook_new(scratch.path().c_str()), lxw_workbook_free);
    if (!workbook) throw RuntimeFailure("cannot write \"" + file + "\": out of memory");
    NumberFormats formats(workbook.get());
    std::set<std::string> taken{"history"};
    const int sheets =
        ForEachShownGrid(core, [&](int, const std::string& key, const CellTable& table) {
            lxw_worksheet* sheet =
                workbook_add_worksheet(workbook.get(), SheetName(key, taken).c_str());
            if (sheet == nullptr)
                throw RuntimeFailure("cannot add a worksheet for \"" + key + "\"");
            WriteSheet(sheet, table, formats, file);
        });
    // The library frees the workbook whether or not it could write it.
    Check(workbook_close(workbook.release()), file);
    std::string reason;
    const std::string bytes = ReadRegularFile(scratch.path(), SIZE_MAX);
    if (!WriteFileAtomically(file, bytes, &reason)) {
        throw RuntimeFailure(reason);
    }
    return sheets;
}

}  // namespace tabulon
