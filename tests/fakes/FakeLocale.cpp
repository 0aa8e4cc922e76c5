#include "fakes/FakeLocale.h"

#include <sstream>

namespace kaz {

namespace {

template <std::size_t Count>
void Set(std::array<std::string, Count>& names, const char* words) {
    std::istringstream stream(words);
    for (std::string& name : names)
        stream >> name;
}

LocaleData Continental() {
    LocaleData data;
    data.decimalSeparator = ",";
    data.groupSeparator = "\u00A0";
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
    Set(data.monthNames, "Januar Februar März April Mai Juni "
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
    Set(data.monthNames, "janvier février mars avril mai juin "
                         "juillet août septembre octobre novembre décembre");
    Set(data.shortMonthNames, "janv. févr. mars avr. mai juin juil. août sept. oct. nov. déc.");
    data.trueWord = "Vrai";
    data.falseWord = "Faux";
    data.shortDatePattern = "dd/MM/yyyy";
    return data;
}

LocaleData FakeLocale::Polish() {
    LocaleData data = Continental();
    Set(data.dayNames, "niedziela poniedziałek wtorek środa czwartek piątek sobota");
    Set(data.shortDayNames, "niedz. pon. wt. śr. czw. pt. sob.");
    Set(data.monthNames, "styczeń luty marzec kwiecień maj czerwiec "
                         "lipiec sierpień wrzesień październik listopad grudzień");
    Set(data.shortMonthNames, "sty lut mar kwi maj cze lip sie wrz paź lis gru");
    data.trueWord = "Prawda";
    data.falseWord = "Fałsz";
    return data;
}

LocaleData FakeLocale::Hungarian() {
    LocaleData data = Continental();
    Set(data.dayNames, "vasárnap hétfõ kedd szerda csütörtök péntek szombat");
    Set(data.shortDayNames, "V H K Sze Cs P Szo");
    Set(data.monthNames, "január február március április május június "
                         "július augusztus szeptember október november december");
    Set(data.shortMonthNames, "jan. febr. márc. ápr. máj. jún. "
                              "júl. aug. szept. okt. nov. dec.");
    data.trueWord = "Igaz";
    data.falseWord = "Hamis";
    data.shortDatePattern = "yyyy. MM. dd.";
    data.timePattern = "H:mm:ss";
    data.morning = "de.";
    data.afternoon = "du.";
    return data;
}

}  // namespace kaz
