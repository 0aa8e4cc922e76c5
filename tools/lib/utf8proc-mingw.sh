#!/usr/bin/env bash
# tools/lib/utf8proc-mingw.sh [TARGET]
#
# Builds utf8proc, which knows the forms and the borders of all letters, for Windows (TARGET: x86_64-w64-mingw32) and
# prints where it is installed.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
source tools/lib/mingw-library.sh

mingw_library utf8proc 2.8.0-1 libutf8proc.a "${1:-x86_64-w64-mingw32}" -DUTF8PROC_ENABLE_TESTING=OFF
