#pragma once

#include <winsock2.h>

namespace kaz {

using Socket = SOCKET;
inline void StartSockets() {
    WSADATA data;
    WSAStartup(MAKEWORD(2, 2), &data);
}
inline void CloseSocket(Socket socket) { closesocket(socket); }
using AddressSize = int;
using SendSize = int;

}  // namespace kaz
