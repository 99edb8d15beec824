#pragma once

#include <QString>
#include <optional>

// tests/data of this repository.
QString testDataDir();
// ../shared/data beside the repository, when it is there (tests using it skip otherwise).
std::optional<QString> sharedDataDir();
