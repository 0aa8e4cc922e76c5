#pragma once

#include <string>
#include <string_view>

namespace kaz {

// Where the program is at home. Who builds it for users of their own changes this file and no other.
inline constexpr std::string_view kHomePage = "https://kaz.example.org/";
inline constexpr std::string_view kUpdatePage = "https://kaz.example.org/download.html";

// The address is a new one each year, so that an old one can be given up once it only gets junk.
inline constexpr std::string_view kBugReportPrefix = "kaz-bugs-";
inline constexpr std::string_view kBugReportDomain = "example.org";

// `year` is a year of four digits.
inline std::string BugReportAddress(int year) {
    return std::string(kBugReportPrefix).append(std::to_string(year)).append("@").append(kBugReportDomain);
}

}  // namespace kaz
