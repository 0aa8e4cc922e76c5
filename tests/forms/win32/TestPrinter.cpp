#include "TestPrinter.h"

#include "fakes/TestData.h"

#include <windows.h>
#include <winspool.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace kaz {

namespace {

constexpr wchar_t kName[] = L"KAZ test printer";

std::wstring Wide(const std::string& text) { return {text.begin(), text.end()}; }

void Install() {
    wchar_t folder[MAX_PATH]{};
    DWORD needed = 0;
    GetPrinterDriverDirectoryW(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(folder), sizeof folder, &needed);
    const std::filesystem::path drivers = std::filesystem::path(folder) / "3";
    std::filesystem::create_directories(drivers);
    std::filesystem::copy_file(TestData() + "/forms/win32/printer.ppd", drivers / "printer.ppd",
                               std::filesystem::copy_options::overwrite_existing);
    std::wstring name = kName, environment = L"Windows x64", driver = L"wineps.drv", data = L"printer.ppd";
    DRIVER_INFO_3W info{};
    info.cVersion = 3;
    info.pName = name.data();
    info.pEnvironment = environment.data();
    info.pDriverPath = info.pConfigFile = driver.data();
    info.pDataFile = data.data();
    AddPrinterDriverExW(nullptr, 3, reinterpret_cast<BYTE*>(&info),
                        APD_COPY_NEW_FILES | APD_COPY_FROM_DIRECTORY);
    std::wstring port = L"LPT1:", processor = L"winprint", type = L"RAW";
    PRINTER_INFO_2W printer{};
    printer.pPrinterName = printer.pDriverName = name.data();
    printer.pPortName = port.data();
    printer.pPrintProcessor = processor.data();
    printer.pDatatype = type.data();
    if (const HANDLE added = AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&printer))) ClosePrinter(added);
    SetDefaultPrinterW(kName);
}

TestPrinter::Sheet ReadPicture(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::string format;
    int depth = 0;
    TestPrinter::Sheet sheet;
    in >> format;
    while ((in >> std::ws).peek() == '#')
        std::getline(in, format);
    in >> sheet.width >> sheet.height >> depth;
    in.get();
    sheet.dots.resize(static_cast<std::size_t>(sheet.width) * static_cast<std::size_t>(sheet.height));
    in.read(reinterpret_cast<char*>(sheet.dots.data()), static_cast<std::streamsize>(sheet.dots.size()));
    if (!in) sheet.dots.clear();  // still being written
    return sheet;
}

}  // namespace

bool TestPrinter::Sheet::IsWhite(int left, int top, int right, int bottom) const {
    for (int y = top; y < bottom; ++y)
        for (int x = left; x < right; ++x)
            if (dots[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                     static_cast<std::size_t>(x)] < 250)
                return false;
    return true;
}

TestPrinter::TestPrinter(const std::string& name) : name_(name) {
    Install();
    std::filesystem::remove(name_ + ".ps");
    for (int page = 1; std::filesystem::remove(name_ + "-" + std::to_string(page) + ".pgm"); ++page) {
    }
    // The document itself stays too, so that it can be looked at in any size.
    const std::string command = "|tee " + name_ + ".ps | gs -q -dSAFER -dNOPAUSE -dBATCH -sDEVICE=pgmraw " +
                                "-dTextAlphaBits=4 -r" + std::to_string(kResolution) +
                                " -sOutputFile=" + name_ + "-%d.pgm - && touch " + name_ + ".done";
    std::filesystem::remove(name_ + ".done");
    const std::wstring value = Wide(command);
    RegSetKeyValueW(HKEY_CURRENT_USER, L"Software\\Wine\\Printing\\Spooler", L"LPT1:", REG_SZ, value.c_str(),
                    static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
}

std::vector<TestPrinter::Sheet> TestPrinter::Sheets() const {
    for (int tries = 0; tries < 200 && !std::filesystem::exists(name_ + ".done"); ++tries)
        Sleep(50);
    std::vector<Sheet> sheets;
    for (int page = 1; std::filesystem::exists(name_ + "-" + std::to_string(page) + ".pgm"); ++page)
        sheets.push_back(ReadPicture(name_ + "-" + std::to_string(page) + ".pgm"));
    return sheets;
}

}  // namespace kaz
