#include "settings/RegFile.h"

#include "settings/TextDecoding.h"

#include <QStringEncoder>

namespace {

const QString kHeader = QStringLiteral("Windows Registry Editor Version 5.00");

struct RootName {
    RegistryRoot root;
    const char* longName;
    const char* shortName;
};
constexpr RootName kRoots[] = {{RegistryRoot::CurrentUser, "HKEY_CURRENT_USER", "HKCU"},
                               {RegistryRoot::LocalMachine, "HKEY_LOCAL_MACHINE", "HKLM"}};

QString quoted(const QString& text) {
    QString escaped = text;
    escaped.replace('\\', QStringLiteral("\\\\")).replace('"', QStringLiteral("\\\""));
    return '"' + escaped + '"';
}

QString hexBytes(const QByteArray& data) {
    QStringList parts;
    for (const char byte : data)
        parts << QStringLiteral("%1").arg(uint8_t(byte), 2, 16, QLatin1Char('0'));
    return parts.join(',');
}

// A string regedit can write between quotes: no line breaks, no terminator inside, exactly one at the end.
bool isPlainString(const QByteArray& data) {
    if (data.size() < 2 || data.size() % 2 != 0 || data.endsWith(QByteArray(2, 0)) == false) return false;
    for (qsizetype i = 0; i + 2 < data.size(); i += 2) {
        const char16_t c = char16_t(uint8_t(data[i]) | uint8_t(data[i + 1]) << 8);
        if (c == 0 || c == '\r' || c == '\n') return false;
    }
    return true;
}

QString valueText(const RegistryValue& value) {
    switch (value.type) {
    case RegistryType::String:
        if (isPlainString(value.data)) {
            return quoted(value.toString());
        }
        return QStringLiteral("hex(1):") + hexBytes(value.data);
    case RegistryType::Dword:
        if (value.data.size() == 4)
            return QStringLiteral("dword:%1").arg(value.toDword(), 8, 16, QLatin1Char('0'));
        return QStringLiteral("hex(4):") + hexBytes(value.data);
    case RegistryType::Binary:
        break;
    }
    return QStringLiteral("hex:") + hexBytes(value.data);
}

void exportKey(RegistryHive& hive, const RegistryKeyName& name, QStringList& lines) {
    const auto key = hive.findKey(name.root, name.path);
    if (!key) return;
    lines << QString() << '[' + name.fullName() + ']';
    for (const QString& valueName : hive.valueNames(*key)) {
        const auto value = hive.value(*key, valueName);
        if (value)
            lines << (valueName.isEmpty() ? QStringLiteral("@") : quoted(valueName)) + '=' +
                         valueText(*value);
    }
    for (const QString& sub : hive.subkeyNames(name.root, name.path))
        exportKey(hive, {name.root, name.path.isEmpty() ? sub : name.path + '\\' + sub}, lines);
}

// Reads a quoted string starting at pos (on the opening quote); returns the position after it.
qsizetype readQuoted(const QString& line, qsizetype pos, QString& out) {
    out.clear();
    for (++pos; pos < line.size(); ++pos) {
        if (line[pos] == '"') return pos + 1;
        if (line[pos] == '\\' && pos + 1 < line.size()) ++pos;
        out.append(line[pos]);
    }
    return -1;
}

std::optional<QByteArray> parseHex(QStringView text) {
    QByteArray data;
    const QString compact = text.toString().remove(' ').remove('\t');
    if (compact.isEmpty()) return data;
    for (QStringView piece : QStringView(compact).split(u',')) {
        bool ok = false;
        const uint byte = piece.toUInt(&ok, 16);
        if (!ok || piece.size() > 2) return std::nullopt;
        data.append(char(byte));
    }
    return data;
}

std::optional<RegistryValue> parseData(QStringView data, QString& error) {
    if (data.startsWith(u'"')) {
        QString text;
        const QString line = data.toString();
        if (readQuoted(line, 0, text) != line.size()) {
            error = QStringLiteral("unterminated or trailing text after a string");
            return std::nullopt;
        }
        return RegistryValue::fromString(text);
    }
    if (data.startsWith(u"dword:")) {
        bool ok = false;
        const uint32_t v = data.sliced(6).toUInt(&ok, 16);
        if (!ok || data.size() > 14) {
            error = QStringLiteral("a dword needs up to eight hex digits");
            return std::nullopt;
        }
        return RegistryValue::fromDword(v);
    }
    struct HexForm {
        const char16_t* prefix;
        RegistryType type;
    };
    for (const HexForm form :
         {HexForm{u"hex:", RegistryType::Binary}, HexForm{u"hex(3):", RegistryType::Binary},
          HexForm{u"hex(1):", RegistryType::String}, HexForm{u"hex(4):", RegistryType::Dword}}) {
        const QStringView prefix(form.prefix);
        if (!data.startsWith(prefix)) continue;
        if (auto bytes = parseHex(data.sliced(prefix.size()))) return RegistryValue{form.type, *bytes};
        error = QStringLiteral("bad hex bytes");
        return std::nullopt;
    }
    error = QStringLiteral("unsupported value type: ") + data.left(12).toString();
    return std::nullopt;
}

// Joins the continuation lines of wrapped hex data (a trailing "\") and drops the line ends.
QList<std::pair<int, QString>> logicalLines(const QString& text) {
    QList<std::pair<int, QString>> lines;
    const QStringList physical =
        QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")).split('\n');
    for (int i = 0; i < physical.size(); ++i) {
        QString line = physical[i].trimmed();
        const int number = i + 1;
        while (line.endsWith('\\') && line.contains(QStringLiteral("=hex")) && i + 1 < physical.size())
            line = line.chopped(1) + physical[++i].trimmed();
        lines << std::pair{number, line};
    }
    return lines;
}

} // namespace

std::optional<RegistryKeyName> RegistryKeyName::parse(const QString& fullName) {
    const QString first = fullName.section('\\', 0, 0);
    for (const RootName& root : kRoots) {
        if (first.compare(QLatin1String(root.longName), Qt::CaseInsensitive) == 0 ||
            first.compare(QLatin1String(root.shortName), Qt::CaseInsensitive) == 0)
            return RegistryKeyName{root.root,
                                   fullName.section('\\', 1).split('\\', Qt::SkipEmptyParts).join('\\')};
    }
    return std::nullopt;
}

QString RegistryKeyName::fullName() const {
    for (const RootName& r : kRoots)
        if (r.root == root)
            return path.isEmpty() ? QLatin1String(r.longName) : QLatin1String(r.longName) + '\\' + path;
    return path;
}

namespace RegFile {

QByteArray exportHive(RegistryHive& hive, const std::optional<RegistryKeyName>& from) {
    QStringList lines{kHeader};
    if (from) {
        exportKey(hive, *from, lines);
    } else {
        for (const RootName& root : kRoots)
            for (const QString& sub : hive.subkeyNames(root.root, {}))
                exportKey(hive, {root.root, sub}, lines);
    }
    lines << QString() << QString();
    QStringEncoder encoder(QStringConverter::Utf16LE, QStringConverter::Flag::WriteBom);
    return encoder.encode(lines.join(QStringLiteral("\r\n")));
}

Parsed parse(const QByteArray& bytes) {
    Parsed parsed;
    const auto lines = logicalLines(decodeText(bytes));
    const auto fail = [&parsed](int number, const QString& what) {
        parsed.keys.clear();
        parsed.error = QStringLiteral("line %1: %2").arg(number).arg(what);
        return parsed;
    };
    bool headerSeen = false;
    for (const auto& [number, line] : lines) {
        if (line.isEmpty() || line.startsWith(';')) continue;
        if (!headerSeen) {
            if (line != kHeader && line != QLatin1String("REGEDIT4"))
                return fail(number, QStringLiteral("not a registry file (expected \"%1\")").arg(kHeader));
            headerSeen = true;
            continue;
        }
        if (line.startsWith('[')) {
            if (!line.endsWith(']')) return fail(number, QStringLiteral("key name without closing \"]\""));
            const bool remove = line.startsWith(QStringLiteral("[-"));
            const auto key = RegistryKeyName::parse(line.mid(remove ? 2 : 1, line.size() - (remove ? 3 : 2)));
            if (!key) return fail(number, QStringLiteral("unknown registry root in ") + line);
            parsed.keys << KeyChange{*key, remove, {}};
            continue;
        }
        if (parsed.keys.isEmpty() || parsed.keys.last().deleteKey)
            return fail(number, QStringLiteral("value outside a key"));
        QString name;
        qsizetype pos = 1;
        if (line.startsWith('"'))
            pos = readQuoted(line, 0, name);
        else if (!line.startsWith('@'))
            return fail(number, QStringLiteral("a value line starts with a quoted name or @"));
        if (pos < 0 || pos >= line.size() || line[pos] != '=')
            return fail(number, QStringLiteral("missing \"=\""));
        const QStringView data = QStringView(line).sliced(pos + 1).trimmed();
        if (data == u"-") {
            parsed.keys.last().values << ValueChange{name, std::nullopt};
            continue;
        }
        QString error;
        const auto value = parseData(data, error);
        if (!value) return fail(number, error);
        parsed.keys.last().values << ValueChange{name, value};
    }
    if (!headerSeen) return fail(1, QStringLiteral("empty file"));
    return parsed;
}

bool apply(RegistryHive& hive, const Parsed& parsed) {
    bool ok = parsed.error.isEmpty();
    for (const KeyChange& change : parsed.keys) {
        if (change.deleteKey) {
            hive.deleteTree(change.key.root, change.key.path);
            continue;
        }
        const auto key = hive.createKey(change.key.root, change.key.path);
        if (!key) return false;
        for (const ValueChange& value : change.values) {
            if (value.value)
                ok = hive.setValue(*key, value.name, *value.value) && ok;
            else
                hive.deleteValue(*key, value.name); // deleting a value that is not there is no error
        }
    }
    return ok;
}

} // namespace RegFile
