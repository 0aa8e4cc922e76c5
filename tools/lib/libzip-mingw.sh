#!/usr/bin/env bash
# tools/lib/libzip-mingw.sh [TARGET]
#
# Builds libzip, which writes the backups, for Windows (TARGET: x86_64-w64-mingw32) and prints where it is installed.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
source tools/lib/mingw-library.sh

off=()
for part in BUILD_{TOOLS,REGRESS,EXAMPLES,DOC} \
    ENABLE_{BZIP2,LZMA,OPENSSL,GNUTLS,MBEDTLS,COMMONCRYPTO,WINDOWS_CRYPTO}; do
    off+=("-D$part=OFF")
done
mingw_library libzip 1.7.3-1 libzip.a "${1:-x86_64-w64-mingw32}" "${off[@]}"
