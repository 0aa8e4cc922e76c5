#include "hosts/kaz2/mail/MailAddresses.h"

#include "hosts/kaz2/mail/Mail.h"
#include "hosts/kaz2/mail/MailText.h"

#include <algorithm>

namespace kaz {

namespace {

constexpr std::size_t kLongest = 254;  // what a mail server must take

std::string_view WithoutName(std::string_view text) {
    const auto open = text.rfind('<');
    if (open == text.npos || !text.ends_with('>')) return text;
    return TrimmedMailText(text.substr(open + 1, text.size() - open - 2));
}

}  // namespace

bool IsMailAddress(std::string_view text) {
    const auto isPlain = [](char c) {
        return c > ' ' && c < '\x7f' && std::string_view("()<>[]:;,\\\"").find(c) == std::string_view::npos;
    };
    const auto at = text.find('@');
    return text.size() <= kLongest && at != text.npos && at > 0 && at + 1 < text.size() &&
           at == text.rfind('@') && std::ranges::all_of(text, isPlain);
}

std::vector<std::string> AddressesOf(std::string_view list) {
    std::vector<std::string> addresses;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find_first_of(";,"), list.size());
        const std::string_view item = TrimmedMailText(list.substr(0, end));
        list.remove_prefix(std::min(end + 1, list.size()));
        if (item.empty()) continue;
        const std::string address(WithoutName(item));
        if (!IsMailAddress(address))
            throw MailFailure{MailTrouble::Recipients,
                              "\"" + OneLineOf(item) + "\" is not an e-mail address."};
        if (std::ranges::find(addresses, address) == addresses.end()) addresses.push_back(address);
    }
    if (addresses.empty())
        throw MailFailure{MailTrouble::Recipients, "The event has no e-mail address to send to."};
    return addresses;
}

}  // namespace kaz
