// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include "app/single-application.h"

// One board per user: later starts run as secondaries that tell the first one.
class SingleApplicationWrapper : public SingleApplication
{
    Q_OBJECT

public:
    SingleApplicationWrapper(int& argc, char* argv[]);
    ~SingleApplicationWrapper() override;
};
