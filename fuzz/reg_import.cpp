// Any bytes as a .reg file: parsing and applying into an in-memory hive must hold.
#include "settings/RegFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static RegistryHive hive(QStringLiteral(":memory:"));
    const RegFile::Parsed parsed =
        RegFile::parse(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    if (parsed.error.isEmpty()) RegFile::apply(hive, parsed);
    (void)RegFile::exportHive(hive, std::nullopt);
    return 0;
}
