#include "TestFolder.h"

#include <windows.h>

#include <fstream>
#include <iterator>
#include <system_error>

namespace kaz::test {

namespace {

std::string Day(int daysFromToday) {
    FILETIME moment;
    SYSTEMTIME date;
    GetLocalTime(&date);
    SystemTimeToFileTime(&date, &moment);
    ULARGE_INTEGER ticks{.u = {moment.dwLowDateTime, moment.dwHighDateTime}};
    ticks.QuadPart += static_cast<ULONGLONG>(daysFromToday) * 24 * 60 * 60 * 10'000'000;
    moment = {ticks.u.LowPart, ticks.u.HighPart};
    FileTimeToSystemTime(&moment, &date);
    char text[16];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d", date.wYear, date.wMonth, date.wDay);
    return text;
}

}  // namespace

TestFolder::TestFolder() {
    static int count = 0;
    path_ = std::filesystem::temp_directory_path() /
            ("kaz-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++count));
    std::filesystem::create_directories(path_);
}

TestFolder::~TestFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

void TestFolder::Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(path_ / name, std::ios::binary) << bytes;
}

std::string TestFolder::Read(const std::string& name) const {
    std::ifstream file(path_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string EventFile(std::initializer_list<EventLine> events) {
    std::string text = "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>\r\n";
    for (const EventLine& event : events)
        text += "<KAZ2>\r\n\t<EVENT>\r\n\t\t<IDCode>" + event.code + "</IDCode>\r\n\t\t<DaysWarning>" +
                std::to_string(event.daysWarning) + "</DaysWarning>\r\n\t\t<Desc>" +
                event.encodedDescription + "</Desc>\r\n\t\t<DueDate>" + Day(event.daysFromToday) +
                "</DueDate>\r\n\t\t<Email>" + event.email +
                "</Email>\r\n\t\t<Owner>Ann</Owner>\r\n\t</EVENT>\r\n</KAZ2>\r\n";
    return text;
}

}  // namespace kaz::test
