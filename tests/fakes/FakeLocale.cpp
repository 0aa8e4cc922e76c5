#include "fakes/FakeLocale.h"

#include <sstream>

namespace kaz {

namespace {

// Letters outside ASCII are in octal, which ends by itself before a following letter.
template <std::size_t Count>
void Set(std::array<std::string, Count>& names, const char* words) {
    std::istringstream stream(words);
    for (std::string& name : names)
        stream >> name;
}

LocaleData Continental() {
    LocaleData data;
    data.decimalSeparator = ",";
    data.groupSeparator = "\240";
    data.shortDatePattern = "dd.MM.yyyy";
    data.timePattern = "HH:mm:ss";
    data.morning.clear();
    data.afternoon.clear();
    return data;
}

}  // namespace

LocaleData FakeLocale::British() {
    LocaleData data;
    data.shortDatePattern = "dd/MM/yyyy";
    data.timePattern = "HH:mm:ss";
    return data;
}

LocaleData FakeLocale::German() {
    LocaleData data = Continental();
    Set(data.dayNames, "Sonntag Montag Dienstag Mittwoch Donnerstag Freitag Samstag");
    Set(data.shortDayNames, "So Mo Di Mi Do Fr Sa");
    Set(data.monthNames, "Januar Februar M\344rz April Mai Juni "
                         "Juli August September Oktober November Dezember");
    Set(data.shortMonthNames, "Jan Feb Mrz Apr Mai Jun Jul Aug Sep Okt Nov Dez");
    data.trueWord = "Wahr";
    data.falseWord = "Falsch";
    data.groupSeparator = ".";
    return data;
}

LocaleData FakeLocale::French() {
    LocaleData data = Continental();
    Set(data.dayNames, "dimanche lundi mardi mercredi jeudi vendredi samedi");
    Set(data.shortDayNames, "dim. lun. mar. mer. jeu. ven. sam.");
    Set(data.monthNames, "janvier f\351vrier mars avril mai juin "
                         "juillet ao\373t septembre octobre novembre d\351cembre");
    Set(data.shortMonthNames, "janv. f\351vr. mars avr. mai juin juil. ao\373t sept. oct. nov. d\351c.");
    data.trueWord = "Vrai";
    data.falseWord = "Faux";
    data.shortDatePattern = "dd/MM/yyyy";
    return data;
}

LocaleData FakeLocale::Polish() {
    LocaleData data = Continental();
    Set(data.dayNames, "niedziela poniedzia\263ek wtorek \234roda czwartek pi\271tek sobota");
    Set(data.shortDayNames, "niedz. pon. wt. \234r. czw. pt. sob.");
    Set(data.monthNames, "stycze\361 luty marzec kwiecie\361 maj czerwiec "
                         "lipiec sierpie\361 wrzesie\361 pa\237dziernik listopad grudzie\361");
    Set(data.shortMonthNames, "sty lut mar kwi maj cze lip sie wrz pa\237 lis gru");
    data.trueWord = "Prawda";
    data.falseWord = "Fa\263sz";
    return data;
}

LocaleData FakeLocale::Hungarian() {
    LocaleData data = Continental();
    Set(data.dayNames, "vas\341rnap h\351tf\365 kedd szerda cs\374t\366rt\366k p\351ntek szombat");
    Set(data.shortDayNames, "V H K Sze Cs P Szo");
    Set(data.monthNames, "janu\341r febru\341r m\341rcius \341prilis m\341jus j\372nius "
                         "j\372lius augusztus szeptember okt\363ber november december");
    Set(data.shortMonthNames, "jan. febr. m\341rc. \341pr. m\341j. j\372n. "
                              "j\372l. aug. szept. okt. nov. dec.");
    data.trueWord = "Igaz";
    data.falseWord = "Hamis";
    data.shortDatePattern = "yyyy. MM. dd.";
    data.timePattern = "H:mm:ss";
    data.morning = "de.";
    data.afternoon = "du.";
    return data;
}

std::optional<std::string> FakeLocale::FromUtf8(std::string_view text) const {
    std::string converted;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto lead = static_cast<unsigned char>(text[i]);
        converted += text[i];
        if (lead < 0x80) continue;
        const unsigned next = i + 1 < text.size() ? static_cast<unsigned char>(text[++i]) : 0U;
        if ((lead != 0xC2 && lead != 0xC3) || (next & 0xC0U) != 0x80) return std::nullopt;
        converted.back() = static_cast<char>(lead == 0xC3 ? next + 0x40 : next);
    }
    return converted;
}

}  // namespace kaz
