#include "settings/RegistryValue.h"

#include <QtEndian>
#include <cstring>

RegistryValue RegistryValue::fromString(const QString& text) {
    QByteArray data((text.size() + 1) * 2, '\0');
    for (qsizetype i = 0; i < text.size(); ++i)
        qToLittleEndian<char16_t>(text[i].unicode(), data.data() + 2 * i);
    return {RegistryType::String, data};
}

RegistryValue RegistryValue::fromDword(uint32_t value) {
    QByteArray data(4, '\0');
    qToLittleEndian(value, data.data());
    return {RegistryType::Dword, data};
}

QString RegistryValue::toString() const {
    QString text;
    for (qsizetype i = 0; i + 1 < data.size(); i += 2) {
        const char16_t c = qFromLittleEndian<char16_t>(data.constData() + i);
        if (c == 0) break;
        text.append(QChar(c));
    }
    return text;
}

uint32_t RegistryValue::toDword() const {
    uint8_t bytes[4] = {0, 0, 0, 0};
    std::memcpy(bytes, data.constData(), std::min<qsizetype>(data.size(), 4));
    return qFromLittleEndian<uint32_t>(bytes);
}
