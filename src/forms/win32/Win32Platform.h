#pragma once

#include "forms/win32/Win32Dialogs.h"
#include "forms/win32/Win32Printer.h"
#include "forms/win32/Win32WindowFactory.h"
#include "platform/Platform.h"
#include "platform/win32/Win32Clock.h"
#include "platform/win32/Win32FileSystem.h"
#include "platform/win32/Win32Locale.h"
#include "platform/win32/Win32MessagePump.h"
#include "platform/win32/Win32Random.h"
#include "platform/win32/Win32Screen.h"
#include "platform/win32/Win32Shell.h"
#include "platform/win32/Win32Sound.h"
#include "platform/win32/Win32SystemInfo.h"
#include "platform/zip/LibzipArchiver.h"

namespace kaz {

// All services of Windows in one owner.
class Win32Platform {
public:
    // `module` holds the resources (the component's own file).
    explicit Win32Platform(HINSTANCE module)
        : dialogs_(module),
          printer_(module),
          system_(module),
          windows_(module),
          services_{clock_,  dialogs_, files_, locale_, pump_,    printer_, random_,
                    screen_, shell_,   sound_, system_, windows_, zip_} {}
    Win32Platform(const Win32Platform&) = delete;
    Win32Platform& operator=(const Win32Platform&) = delete;

    const Platform& Services() const { return services_; }

private:
    Win32Clock clock_;
    Win32Dialogs dialogs_;
    Win32FileSystem files_;
    Win32Locale locale_;
    Win32MessagePump pump_;
    Win32Printer printer_;
    Win32Random random_;
    Win32Screen screen_;
    Win32Shell shell_;
    Win32Sound sound_;
    Win32SystemInfo system_;
    Win32WindowFactory windows_;
    LibzipArchiver zip_{files_};
    Platform services_;
};

}  // namespace kaz
