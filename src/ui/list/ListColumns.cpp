#include "ui/list/ListColumns.h"

#include "base/Text.h"
#include "resources/resource.h"
#include "ui/list/EventRows.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kaz {

namespace {

constexpr const char* kSetting = "ListColumns";
constexpr int kWidest = 2000;  // in units of 1/96 inch

// "4:250 0:56 8:88- ...": column and width from left to right, with a minus behind those that are hidden.
std::string TextOf(const std::vector<ColumnPlace>& places) {
    std::string text;
    for (const ColumnPlace& place : places)
        text.append(text.empty() ? "" : " ")
            .append(std::to_string(place.column))
            .append(":")
            .append(std::to_string(place.width))
            .append(place.shown ? "" : "-");
    return text;
}

std::optional<ColumnPlace> PlaceIn(std::string_view text) {
    ColumnPlace place;
    const char* const end = text.data() + text.size();
    const auto [colon, noColumn] = std::from_chars(text.data(), end, place.column);
    if (noColumn != std::errc{} || colon == end || *colon != ':') return std::nullopt;
    const auto [rest, noWidth] = std::from_chars(colon + 1, end, place.width);
    const bool isFine = noWidth == std::errc{} && place.column >= 0 && place.column < kEventColumns &&
                        place.width >= 0 && place.width <= kWidest;
    place.shown = rest == end;
    return isFine ? std::optional(place) : std::nullopt;
}

}  // namespace

// A column that the setting does not know, as one of a later version, stands where it was made.
void ListColumns::Restore() {
    made_ = List().Columns();
    std::vector<ColumnPlace> places;
    const auto has = [&places](int column) {
        return std::ranges::count(places, column, &ColumnPlace::column) > 0;
    };
    const std::string stored = settings_.TextOr(kSetting, "");
    for (const std::string_view text : Split(stored, " ", kEventColumns))
        if (const auto place = PlaceIn(text); place && !has(place->column)) places.push_back(*place);
    for (const ColumnPlace& place : made_)
        if (!has(place.column)) places.push_back(place);
    List().PlaceColumns(places);
}

void ListColumns::Save() {
    const std::string now = TextOf(List().Columns());
    if (now != TextOf(made_) || settings_.IsSettingPresent(kSetting)) settings_.StoreSetting(kSetting, now);
}

void ListColumns::MarkCommands() {
    for (const ColumnPlace& place : List().Columns())
        window_.MarkCommand(IDM_COLUMN + place.column, place.shown);
}

void ListColumns::Toggle(int column) {
    if (column == kEventColumn) return;
    std::vector<ColumnPlace> places = List().Columns();
    for (ColumnPlace& place : places)
        if (place.column == column) place.shown = !place.shown;
    List().PlaceColumns(places);
}

void ListColumns::Reset() { List().PlaceColumns(made_); }

}  // namespace kaz
