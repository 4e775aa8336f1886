#pragma once
// The year calendar of contests shown as a tree in the help window: one node per month and under
// it one line per contest weekend. Fixed data; the tree's node index (from 1) is the position in
// this table.
#include <span>

namespace hfc {

struct CalendarNode {
    const char* key;    // "n1" … "n12" for a month, "" for a contest line
    const char* parent; // the month's key for a contest line, "" for a month
    const char* image;  // "closed" for a month; "bek", "lux" or "net" for a contest line
    const char* text;   // shown exactly as written, inner blanks included
    const char* code;   // contest code a click selects; "" for a month
    bool ssbOnly;       // the line's mode is SSB alone: a click switches the mode to SSB
};

std::span<const CalendarNode> calendarNodes();
// The node with that tree index (1-based); nullptr outside the table.
const CalendarNode* calendarNode(int index);

} // namespace hfc
