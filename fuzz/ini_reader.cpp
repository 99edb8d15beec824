// Any bytes as a text profile: decoding, line splitting and every reader must hold.
#include "settings/CIniFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    CIniFile ini;
    ini.LoadFromBytes(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    for (const QString& line : ini.Lines()) {
        if (!line.startsWith('[') || !line.endsWith(']') || line.size() <= 2) continue;
        const QString section = line.mid(1, line.size() - 2);
        QString key;
        for (int guard = 0; guard < 64 && ini.NextKey(section, key); ++guard) {
            bool flag;
            double number;
            Colour colour = 0;
            LogFont font;
            QStringList list;
            QString text;
            Rect rect;
            ini.ReadBool(section, key, flag);
            ini.ReadDouble(section, key, number);
            ini.ReadColour(section, key, colour);
            ini.ReadFont(section, key, font);
            ini.ReadStringList(section, key, list);
            ini.ReadMultiLine(section, key, text);
            ini.ReadRect(section, key, rect);
        }
    }
    (void)ini.ToBytes();
    return 0;
}
