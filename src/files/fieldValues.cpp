#include "files/fieldValues.h"

#include <algorithm>
#include <numeric>
#include <span>
#include <string_view>
#include <vector>

#include "base/threads.h"

namespace velmar::files {
namespace {

using base::TextScanner;

/// Text is read in pieces of about this many bytes, a few dozen of them at a time.
constexpr std::size_t pieceBytes = std::size_t{1} << 17U;
constexpr std::size_t piecesAtOnce = 64;
constexpr double nanosecondsPerByte = 1.5;

/// Counts as white space does here and in the scanner.
bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

/// 1 where a word starts at a character, else 0. Computed from both, so that counting is vectorised.
unsigned startsWord(char before, char c) {
    return static_cast<unsigned>(isBlank(before)) & static_cast<unsigned>(!isBlank(c));
}

/// Where a piece of text ends that has at least so many bytes: before white space, or with the text.
std::size_t endOfPiece(std::string_view text, std::size_t bytes) {
    std::size_t end = std::min(bytes, text.size());
    while (end < text.size() && !isBlank(text[end])) ++end;
    return end;
}

std::vector<std::string_view> piecesOf(std::string_view text) {
    std::vector<std::string_view> pieces;
    while (!text.empty() && pieces.size() < piecesAtOnce) {
        const std::size_t end = endOfPiece(text, pieceBytes);
        pieces.push_back(text.substr(0, end));
        text.remove_prefix(end);
    }
    return pieces;
}

/// How many words there are: blanks, or the start of the text, followed by something else.
std::size_t wordsOf(std::string_view text) {
    // Counted in bytes, which hold the starts of words among 255 characters, so that vectors are full.
    constexpr std::size_t stretch = 255;
    std::size_t words = !text.empty() && !isBlank(text.front()) ? 1 : 0;
    for (std::size_t first = 1; first < text.size(); first += stretch) {
        const std::size_t last = std::min(first + stretch, text.size());
        unsigned char starts = 0;
        for (std::size_t k = first; k < last; ++k)
            starts = static_cast<unsigned char>(starts + startsWord(text[k - 1], text[k]));
        words += starts;
    }
    return words;
}

/// Reads values from number `first` on into their rows; returns how many there were.
std::size_t readValues(TextScanner& in, const FieldRows& field, std::size_t first, std::size_t count) {
    std::size_t done = 0;
    while (done < count) {
        const std::size_t column = (first + done) % field.columns;
        const auto row = static_cast<std::ptrdiff_t>((first + done) / field.columns);
        const std::size_t wanted = std::min(field.columns - column, count - done);
        const std::size_t read = in.read({field.first + row * field.stride + column, wanted});
        done += read;
        if (read < wanted) break;
    }
    return done;
}

/// Whether a piece of text is the values from number `first` on, one a word, and no more.
bool readPiece(std::string_view piece, const FieldRows& field, std::size_t first, std::size_t words) {
    TextScanner in(piece);
    if (readValues(in, field, first, words) < words) return false;
    const std::string_view rest = in.rest();
    return std::ranges::all_of(rest, isBlank);
}

/// Reads as much as can be shared among threads: pieces of text whose words are numbers, one each, so that it is
/// known beforehand which values they are. Returns how many values have been read.
std::size_t readPieces(TextScanner& in, const FieldRows& field) {
    const std::size_t count = field.columns * field.rows;
    std::size_t done = 0;
    while (done < count) {
        const std::vector<std::string_view> pieces = piecesOf(in.rest());
        std::vector<std::size_t> words(pieces.size());
        constexpr double nanosecondsEach = nanosecondsPerByte * pieceBytes;
        base::shareWork(pieces.size(), nanosecondsEach / 8, [&](std::size_t first, std::size_t last) {
            for (std::size_t k = first; k < last; ++k) words[k] = wordsOf(pieces[k]);
        });
        std::vector<std::size_t> firstValues(pieces.size());
        std::exclusive_scan(words.begin(), words.end(), firstValues.begin(), done);
        std::vector<char> isRead(pieces.size(), 0);
        base::shareWork(pieces.size(), nanosecondsEach, [&](std::size_t first, std::size_t last) {
            for (std::size_t k = first; k < last; ++k) {
                if (firstValues[k] + words[k] > count) break;
                isRead[k] = readPiece(pieces[k], field, firstValues[k], words[k]);
            }
        });
        for (std::size_t k = 0; k < pieces.size(); ++k) {
            if (!isRead[k]) return done;
            done += words[k];
            in.skip(pieces[k].size());
        }
        if (pieces.empty()) break;
    }
    return done;
}

}  // namespace

bool readFieldValues(TextScanner& in, const FieldRows& field) {
    const std::size_t count = field.columns * field.rows;
    const bool isShared = base::threadLimit() > 1 && std::min(in.remaining() / 2, count) > pieceBytes;
    const std::size_t done = isShared ? readPieces(in, field) : 0;
    return readValues(in, field, done, count - done) == count - done;
}

}  // namespace velmar::files
