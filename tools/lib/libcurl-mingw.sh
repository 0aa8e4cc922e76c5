#!/usr/bin/env bash
# tools/lib/libcurl-mingw.sh [TARGET]
#
# Builds libcurl, through which the host sends mail, for Windows (TARGET: x86_64-w64-mingw32) and prints where it is
# installed. TLS is the system's own (Schannel), with the system's certificates. Of all the protocols SMTP is left, and
# HTTP, because Debian's security fixes call into its source from the others.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
source tools/lib/mingw-library.sh

options=(-DCURL_USE_SCHANNEL=ON -DENABLE_UNICODE=ON -DENABLE_THREADED_RESOLVER=ON)
for part in ALTSVC COOKIES CRYPTO_AUTH DICT DOH FILE FTP GETOPTIONS GOPHER HEADERS_API HSTS HTTP_AUTH IMAP LDAP \
    LDAPS LIBCURL_OPTION MIME MQTT NETRC NTLM PARSEDATE POP3 PROGRESS_METER PROXY RTSP SHUFFLE_DNS SMB TELNET TFTP; do
    options+=("-DCURL_DISABLE_$part=ON")
done
for part in BUILD_CURL_EXE BUILD_TESTING ENABLE_MANUAL CURL_BROTLI CURL_USE_LIBPSL CURL_USE_LIBSSH CURL_USE_LIBSSH2 CURL_ZLIB \
    CURL_ZSTD USE_LIBIDN2 USE_NGHTTP2 USE_WIN32_IDN USE_WIN32_LDAP ENABLE_UNIX_SOCKETS; do
    options+=("-D$part=OFF")
done
mingw_library curl 7.88.1 libcurl.a "${1:-x86_64-w64-mingw32}" "${options[@]}"
