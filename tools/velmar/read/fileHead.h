#pragma once

#include <string>
#include <string_view>

#include "files/file.h"

namespace velmar::tool {

/// What files hold.
enum class FileContent { grid, wind, byteImage, stations, soundings, mapLines };

/// A kind of file of the family: its type number, what it holds and its name in words.
struct FileKind {
    int type;
    FileContent content;
    std::string_view name;
    /// The first word such a file can begin with.
    bool diamond;
    bool march;
};

/// What the first words of a file say about it.
struct FileHead {
    files::FileText file;
    std::string keyword;
    FileKind kind;
    std::string title;       ///< UTF-8; empty where the kind has none
    std::string titleBytes;  ///< as the file has it, in GBK
};

inline constexpr int gridFileType = 4;

/// Reads a file and tells its kind; a Problem when it cannot be read or is of no known kind.
FileHead readFileHead(const std::string& path);

}  // namespace velmar::tool
