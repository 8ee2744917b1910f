// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/single-application-wrapper.h"

SingleApplicationWrapper::SingleApplicationWrapper(int& argc, char* argv[])
    : SingleApplication(argc, argv, true,
                        SingleApplication::User | SingleApplication::System |
                            SingleApplication::SecondaryNotification,
                        1000)
{
}

SingleApplicationWrapper::~SingleApplicationWrapper() = default;
