#include "read/fileHead.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <filesystem>

#include "base/scanner.h"
#include "common/text.h"

namespace velmar::tool {
namespace {

constexpr std::array kinds{
    FileKind{1, FileContent::stations, "surface station reports", true, false},
    FileKind{2, FileContent::stations, "upper-air station reports", true, false},
    FileKind{3, FileContent::stations, "station values of one or more elements", true, false},
    FileKind{gridFileType, FileContent::grid, "grid of one quantity", true, false},
    FileKind{5, FileContent::soundings, "soundings", true, true},
    FileKind{8, FileContent::stations, "city forecasts", true, false},
    FileKind{9, FileContent::mapLines, "map lines", true, true},
    FileKind{10, FileContent::mapLines, "region boundaries", true, false},
    FileKind{11, FileContent::wind, "wind grid", true, false},
    FileKind{13, FileContent::byteImage, "byte image", false, true},
    FileKind{16, FileContent::stations, "station list", true, false},
    FileKind{777, FileContent::mapLines, "boundary line", true, false},
    FileKind{778, FileContent::mapLines, "boundary line", true, false},
    FileKind{780, FileContent::mapLines, "boundary line", true, false},
};

constexpr std::string_view notOfTheFamily =
    "it is no file of a known kind: its first words should be \"diamond\" or \"March\" and a type number";

files::FileText readFile(const std::string& path) {
    auto file = files::readWholeFile(path.c_str());
    if (file) return std::move(*file);
    std::error_code ignored;
    const auto status = std::filesystem::status(path, ignored);
    if (!std::filesystem::exists(status)) throw Problem("there is no such file");
    if (std::filesystem::is_directory(status)) throw Problem("it is a folder, not a file");
    if (!std::filesystem::is_regular_file(status)) throw Problem("it is not a regular file");
    throw Problem("the file cannot be opened");
}

}  // namespace

FileHead readFileHead(const std::string& path) {
    FileHead head{.file = readFile(path), .keyword = {}, .kind = {}, .title = {}, .titleBytes = {}};
    base::TextScanner in(head.file.view());
    std::string_view keyword;
    int type = 0;
    if (head.file.size == 0) throw Problem("the file is empty");
    if (scan(in, keyword, type) < 2 || (keyword != "diamond" && keyword != "March"))
        throw Problem(std::string(notOfTheFamily));

    const bool diamond = keyword == "diamond";
    const auto kind = std::ranges::find_if(kinds, [&](const FileKind& candidate) {
        return candidate.type == type && (diamond ? candidate.diamond : candidate.march);
    });
    if (kind == kinds.end())
        throw Problem(
            fmt::format("there is no kind of file with the keyword \"{}\" and type {}", keyword, type));
    head.keyword = keyword;
    head.kind = *kind;
    // Map lines with this keyword go on with numbers at once.
    if (diamond && type == 9) return head;
    std::string_view title;
    if (scan(in, title) < 1) return head;
    head.title = gbkToUtf8(title);
    head.titleBytes = title;
    return head;
}

}  // namespace velmar::tool
