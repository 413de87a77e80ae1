// SPDX-License-Identifier: MIT
#include "services/ambient/Sayings.h"

#include <array>

namespace zeph {

namespace {

struct Row {
    const char *text;
    const char *author;
};

constexpr std::array<Row, sayingCount> rows = {{
    {"The best way to predict the future is to invent it.", "Alan Kay"},
    {"Simplicity is the ultimate sophistication.", "Leonardo da Vinci"},
    {"What we think, we become.", "Buddha"},
    {"Well begun is half done.", "Aristotle"},
    {"It always seems impossible until it's done.", "Nelson Mandela"},
    {"The obstacle is the way.", "Marcus Aurelius"},
    {"Stay hungry, stay foolish.", "Stewart Brand"},
    {"Make it work, make it right, make it fast.", "Kent Beck"},
    {"He who has a why to live can bear almost any how.", "Friedrich Nietzsche"},
    {"Action is the foundational key to all success.", "Pablo Picasso"},
    {"Whatever you do, do it well.", "Walt Disney"},
    {"The journey of a thousand miles begins with one step.", "Lao Tzu"},
    {"Quality is not an act, it is a habit.", "Aristotle"},
    {"No pressure, no diamonds.", "Thomas Carlyle"},
}};

} // namespace

QuoteInfo saying(std::size_t index) {
    const Row &row = rows.at(index);
    return {QString::fromLatin1(row.text), QString::fromLatin1(row.author)};
}

} // namespace zeph
