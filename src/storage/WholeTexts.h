#pragma once

#include "model/clsEvent.h"
#include "storage/SideLine.h"

#include <string_view>
#include <vector>

namespace kaz {

// Texts of an event with letters that the code page of its file does not hold. The field has the nearest
// letters, and an entry of the side file ("text") the whole text, with the sum of the field's bytes that it
// belongs to: when another program has changed the field since, the field holds.

bool IsWholeText(const SideLine& line);

// Whether the code page holds all of them.
bool FitsFile(const clsEvent& event);

// The entries for what of the event does not fit.
std::vector<SideLine> WholeTextLines(const clsEvent& event, const SideKey& key);

// What such an entry is to an event with its code.
enum class WholeText {
    Fits,     // its field is what the whole text becomes
    Foreign,  // its field is what another code page has made of the whole text; the entry stays for that one
    Left,     // its field has another text by now, or there is none of that name, or the entry is broken
};
WholeText WholeTextFor(const clsEvent& event, const SideLine& line);

// Gives the event the texts of those entries that fit, and to all its other fields what stands in the file.
void TakeWholeTexts(clsEvent& event, const std::vector<const SideLine*>& lines);

// Whether the events' texts are the same letter by letter, also beyond what their files hold.
bool HaveSameTexts(const clsEvent& a, const clsEvent& b);

}  // namespace kaz
