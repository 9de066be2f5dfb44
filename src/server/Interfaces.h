// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The interfaces as the compiler of QOR_File.idl declares them, over the enumerations that the component declares.
#pragma once

#include <QOR_File/Enumerations.h>
#define QOR_FILE_ENUMERATIONS

#include "QOR_FileInterfaces.h"
