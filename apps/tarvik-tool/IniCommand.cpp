#include "Commands.h"
#include "settings/CIniFile.h"
#include "settings/TextDecoding.h"

#include <QFile>

namespace {

const char* const kUsage =
    "tarvik-tool ini get FILE SECTION KEY [--as KIND]\n"
    "       tarvik-tool ini set FILE SECTION KEY VALUE [--as KIND]\n"
    "KIND: string (default), int, flag, float, double, color (r,g,b), rect (l,t,r,b), point (x,y),\n"
    "size (cx,cy), multiline, list (items one per line on output, separated by '\"' on input).\n"
    "get prints the value as that reader reads it and exits 1 when the key is not found.";

const QStringList kKinds = {"string", "int",   "flag", "float",     "double", "color",
                            "rect",   "point", "size", "multiline", "list"};

QString colourText(Colour c) {
    return QStringLiteral("%1,%2,%3").arg(c & 0xFF).arg((c >> 8) & 0xFF).arg((c >> 16) & 0xFF);
}

// Numbers given on the command line for the structured kinds, "1,2,3,4".
QList<int32_t> numbers(const QString& text) {
    return ValueText::parseIntList(text);
}

std::optional<QString> readAs(CIniFile& ini, const QString& kind, const QString& section,
                              const QString& key) {
    bool found = false;
    QString result;
    if (kind == "string") {
        found = ini.ReadString(section, key, result);
    } else if (kind == "int") {
        int32_t v = 0;
        found = ini.ReadInt(section, key, v);
        result = QString::number(v);
    } else if (kind == "flag") {
        bool v = false;
        found = ini.ReadBool(section, key, v);
        result = v ? "true" : "false";
    } else if (kind == "float") {
        float v = 0;
        found = ini.ReadFloat(section, key, v);
        result = ToolContext::number(v);
    } else if (kind == "double") {
        double v = 0;
        found = ini.ReadDouble(section, key, v);
        result = ToolContext::number(v);
    } else if (kind == "color") {
        Colour v = 0;
        found = ini.ReadColour(section, key, v);
        result = colourText(v);
    } else if (kind == "rect") {
        Rect r;
        found = ini.ReadRect(section, key, r);
        result = QStringLiteral("%1,%2,%3,%4").arg(r.left).arg(r.top).arg(r.right).arg(r.bottom);
    } else if (kind == "point") {
        Point p;
        found = ini.ReadPoint(section, key, p);
        result = QStringLiteral("%1,%2").arg(p.x).arg(p.y);
    } else if (kind == "size") {
        Size s;
        found = ini.ReadSize(section, key, s);
        result = QStringLiteral("%1,%2").arg(s.cx).arg(s.cy);
    } else if (kind == "multiline") {
        found = ini.ReadMultiLine(section, key, result);
    } else if (kind == "list") {
        QStringList items;
        found = ini.ReadStringList(section, key, items);
        result = items.join('\n');
    }
    return found ? std::optional(result) : std::nullopt;
}

bool writeAs(CIniFile& ini, const QString& kind, const QString& section, const QString& key,
             const QString& value) {
    const QList<int32_t> n = numbers(value);
    if (kind == "string") return ini.WriteString(section, key, value);
    if (kind == "int") return ini.WriteInt(section, key, ValueText::wtol(value));
    if (kind == "flag") return ini.WriteBool(section, key, value == "true" || ValueText::wtol(value) >= 1);
    if (kind == "float") return ini.WriteFloat(section, key, float(ValueText::wcstod(value)));
    if (kind == "double") return ini.WriteDouble(section, key, ValueText::wcstod(value));
    if (kind == "color") return ini.WriteColour(section, key, makeColour(n.value(0), n.value(1), n.value(2)));
    if (kind == "rect") return ini.WriteRect(section, key, {n.value(0), n.value(1), n.value(2), n.value(3)});
    if (kind == "point") return ini.WritePoint(section, key, {n.value(0), n.value(1)});
    if (kind == "size") return ini.WriteSize(section, key, {n.value(0), n.value(1)});
    if (kind == "multiline") return ini.WriteMultiLine(section, key, value);
    return ini.WriteStringList(section, key, value.split('"'));
}

} // namespace

int runIniCommand(ToolContext& ctx, QStringList args) {
    const ToolOptions options(args, {QStringLiteral("--as")}, {QStringLiteral("--help")});
    if (!options.ok()) return ctx.usageError(options.error(), kUsage);
    if (ToolContext::helpRequested(args)) return ctx.printUsage(kUsage);
    const QStringList pos = options.positional();
    const QString kind = options.value(QStringLiteral("--as"), QStringLiteral("string"));
    if (!kKinds.contains(kind)) return ctx.usageError("unknown --as kind '" + kind + "'", kUsage);
    const QString verb = pos.value(0);
    CIniFile ini;
    if (verb == QLatin1String("get") && pos.size() == 4) {
        if (!ini.Load(pos[1])) return ctx.inputError("cannot read " + pos[1]);
        const auto value = readAs(ini, kind, pos[2], pos[3]);
        if (!value) return ctx.inputError("no key '" + pos[3] + "' in section '" + pos[2] + "'");
        ctx.out << *value << Qt::endl;
        return ToolContext::kOk;
    }
    if (verb == QLatin1String("set") && pos.size() == 5) {
        if (QFile::exists(pos[1])) {
            QFile file(pos[1]);
            if (!file.open(QIODevice::ReadOnly)) return ctx.inputError("cannot read " + pos[1]);
            const QByteArray bytes = file.readAll();
            // A binary file would be rewritten as text and lost.
            if (!isText(bytes)) return ctx.inputError(pos[1] + " is not a text file; left unchanged");
            ini.LoadFromBytes(bytes);
        }
        if (!writeAs(ini, kind, pos[2], pos[3], pos[4])) return ctx.inputError("a section name is needed");
        return ini.Save(pos[1]) ? ToolContext::kOk
                                : ctx.inputError("cannot write " + pos[1] + "; the old file is unchanged");
    }
    if (verb != QLatin1String("get") && verb != QLatin1String("set"))
        return ctx.usageError(ToolContext::unknownVerbProblem(verb), kUsage);
    return ctx.usageError(ToolContext::argumentCountProblem(pos, verb == QLatin1String("get") ? 4 : 5),
                          kUsage);
}
