#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace kaz {

using Socket = int;
inline void StartSockets() {}
inline void CloseSocket(Socket socket) { close(socket); }
using AddressSize = socklen_t;
using SendSize = std::size_t;

}  // namespace kaz
