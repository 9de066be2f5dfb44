/* SPDX-License-Identifier: MIT
   Copyright (c) 2026 The QOR_File authors

   The version record, read by the compiler, the resource compiler and CMake: plain numbers and C comments only. */
#pragma once

#define QOR_FILE_MAJOR 1
#define QOR_FILE_MINOR 5
#define QOR_FILE_REVISION 3
/* The same as people read it. */
#define QOR_FILE_VERSION_TEXT "1.05.0003"
#define QOR_FILE_DESCRIPTION "DU'lmeerQOR File Creation DLL"
#define QOR_FILE_COMMENTS "A DLL to access DUlmeer files"
