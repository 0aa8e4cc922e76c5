#pragma once

#include <string>
#include <string_view>

namespace kaz {

// "KAZ2.log" in the data folder: what the host itself has to tell, one UTF-8 line each. The component's own
// log begins anew with each start; this one goes on, so that what failed at the end of the program can be
// read at the next start. Any thread.
class HostLog {
public:
    explicit HostLog(const std::wstring& folder);

    const std::wstring& FileName() const { return fileName_; }
    // A line that cannot be written is lost: there is no other place to tell.
    void Write(std::string_view line) const;

private:
    std::wstring fileName_;
};

}  // namespace kaz
