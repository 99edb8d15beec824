#include "Commands.h"
#include "settings/RegFile.h"
#include "settings/RegistryHive.h"

#include <QFile>
#include <QHash>
#include <QSaveFile>

namespace {

const char* const kUsage =
    "tarvik-tool reg get KEY NAME\n"
    "       tarvik-tool reg set KEY NAME --type sz|dword|binary VALUE\n"
    "       tarvik-tool reg list KEY\n"
    "       tarvik-tool reg delete KEY [NAME]\n"
    "       tarvik-tool reg export [KEY] FILE|-\n"
    "       tarvik-tool reg import FILE\n"
    "KEY is a full key name such as HKCU\\SOFTWARE\\Omvale\\Fendix (HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE,\n"
    "HKCU, HKLM). Binary values are hex bytes (\"01ff\" or \"01,ff\"); dwords decimal or 0x-hex.\n"
    "export and import use the \"Windows Registry Editor Version 5.00\" text of regedit.";

QString typeName(RegistryType type) {
    switch (type) {
    case RegistryType::String:
        return QStringLiteral("sz");
    case RegistryType::Dword:
        return QStringLiteral("dword");
    case RegistryType::Binary:
        break;
    }
    return QStringLiteral("binary");
}

QString valueText(const RegistryValue& value) {
    if (value.type == RegistryType::String) return value.toString();
    if (value.type == RegistryType::Dword && value.data.size() == 4) return QString::number(value.toDword());
    return QString::fromLatin1(value.data.toHex());
}

std::optional<RegistryValue> parseValue(const QString& type, const QString& text) {
    if (type == QLatin1String("sz")) return RegistryValue::fromString(text);
    if (type == QLatin1String("dword")) {
        bool ok = false;
        const uint32_t v =
            text.startsWith(QLatin1String("0x")) ? text.mid(2).toUInt(&ok, 16) : text.toUInt(&ok, 10);
        if (!ok) return std::nullopt;
        return RegistryValue::fromDword(v);
    }
    if (type == QLatin1String("binary")) {
        const QByteArray hex = QString(text).remove(',').remove(' ').toLatin1();
        if (hex.size() % 2 != 0 ||
            !std::all_of(hex.begin(), hex.end(), [](char c) { return isxdigit(uchar(c)); }))
            return std::nullopt;
        return RegistryValue{RegistryType::Binary, QByteArray::fromHex(hex)};
    }
    return std::nullopt;
}

class RegCommand {
public:
    RegCommand(ToolContext& ctx) : m_ctx(ctx), m_hive(*RegistryHive::current()) {}

    int run(const QStringList& args) {
        const ToolOptions options(args, {QStringLiteral("--type")}, {QStringLiteral("--help")});
        if (!options.ok()) return m_ctx.usageError(options.error(), kUsage);
        const QStringList pos = options.positional();
        if (ToolContext::helpRequested(args)) return m_ctx.printUsage(kUsage);
        const QString verb = pos.value(0);
        if (verb == QLatin1String("get") && pos.size() == 3) return get(pos[1], pos[2]);
        if (verb == QLatin1String("set") && pos.size() == 4 && options.has(QStringLiteral("--type")))
            return set(pos[1], pos[2], options.value(QStringLiteral("--type")), pos[3]);
        if (verb == QLatin1String("list") && pos.size() == 2) return list(pos[1]);
        if (verb == QLatin1String("delete") && (pos.size() == 2 || pos.size() == 3))
            return remove(pos[1], pos.value(2));
        if (verb == QLatin1String("export") && (pos.size() == 2 || pos.size() == 3))
            return exportTo(pos.size() == 3 ? pos[1] : QString(), pos.last());
        if (verb == QLatin1String("import") && pos.size() == 2) return importFrom(pos[1]);
        if (verb == QLatin1String("set") && pos.size() == 4)
            return m_ctx.usageError(QStringLiteral("set needs --type"), kUsage);
        // Arguments of each verb, the verb included: least and most.
        const QHash<QString, std::pair<int, int>> kArguments = {{"get", {3, 3}},    {"set", {4, 4}},
                                                                {"list", {2, 2}},   {"delete", {2, 3}},
                                                                {"export", {2, 3}}, {"import", {2, 2}}};
        if (!kArguments.contains(verb))
            return m_ctx.usageError(ToolContext::unknownVerbProblem(verb), kUsage);
        const auto [least, most] = kArguments[verb];
        return m_ctx.usageError(ToolContext::argumentCountProblem(pos, least, most), kUsage);
    }

private:
    std::optional<RegistryKeyName> keyName(const QString& text) {
        const auto name = RegistryKeyName::parse(text);
        if (!name) m_ctx.err << "tarvik-tool: unknown registry root in '" << text << "'" << Qt::endl;
        return name;
    }

    int get(const QString& keyText, const QString& valueName) {
        const auto name = keyName(keyText);
        if (!name) return ToolContext::kUsageError;
        const auto key = m_hive.findKey(name->root, name->path);
        const auto value = key ? m_hive.value(*key, valueName) : std::nullopt;
        if (!value) return m_ctx.inputError("no value '" + valueName + "' in " + name->fullName());
        m_ctx.out << valueText(*value) << Qt::endl;
        return ToolContext::kOk;
    }

    int set(const QString& keyText, const QString& valueName, const QString& type, const QString& text) {
        const auto name = keyName(keyText);
        if (!name) return ToolContext::kUsageError;
        const auto value = parseValue(type, text);
        if (!value) return m_ctx.inputError("'" + text + "' is not a value of type " + type);
        const auto key = m_hive.createKey(name->root, name->path);
        if (!key || !m_hive.setValue(*key, valueName, *value))
            return m_ctx.inputError("cannot write the settings");
        return ToolContext::kOk;
    }

    int list(const QString& keyText) {
        const auto name = keyName(keyText);
        if (!name) return ToolContext::kUsageError;
        const auto key = m_hive.findKey(name->root, name->path);
        if (!key) return m_ctx.inputError("no key " + name->fullName());
        m_ctx.printCsvRow({"name", "type", "value"});
        // Subkeys first, as regedit shows them, with the type "key".
        for (const QString& subkey : m_hive.subkeyNames(name->root, name->path))
            m_ctx.printCsvRow({subkey, QStringLiteral("key"), QString()});
        for (const QString& valueName : m_hive.valueNames(*key))
            if (const auto value = m_hive.value(*key, valueName))
                m_ctx.printCsvRow({valueName, typeName(value->type), valueText(*value)});
        m_ctx.out.flush();
        return ToolContext::kOk;
    }

    int remove(const QString& keyText, const QString& valueName) {
        const auto name = keyName(keyText);
        if (!name) return ToolContext::kUsageError;
        const auto key = m_hive.findKey(name->root, name->path);
        if (!key) return m_ctx.inputError("no key " + name->fullName());
        const bool ok = valueName.isEmpty() ? m_hive.deleteTree(name->root, name->path)
                                            : m_hive.deleteValue(*key, valueName);
        return ok ? ToolContext::kOk : m_ctx.inputError("nothing deleted");
    }

    int exportTo(const QString& keyText, const QString& file) {
        std::optional<RegistryKeyName> from;
        if (!keyText.isEmpty()) {
            from = keyName(keyText);
            if (!from) return ToolContext::kUsageError;
            if (!m_hive.findKey(from->root, from->path))
                return m_ctx.inputError("no key " + from->fullName());
        }
        const QByteArray text = RegFile::exportHive(m_hive, from);
        if (file == QLatin1String("-")) {
            m_ctx.out.flush();
            const bool written =
                std::fwrite(text.constData(), 1, size_t(text.size()), stdout) == size_t(text.size());
            return written && std::fflush(stdout) == 0 ? ToolContext::kOk
                                                       : m_ctx.inputError("cannot write standard output");
        }
        QSaveFile out(file);
        if (!out.open(QIODevice::WriteOnly)) return m_ctx.inputError("cannot write " + file);
        out.write(text);
        return out.commit() ? ToolContext::kOk : m_ctx.inputError("cannot write " + file);
    }

    int importFrom(const QString& file) {
        QFile in(file);
        if (!in.open(QIODevice::ReadOnly)) return m_ctx.inputError("cannot read " + file);
        const RegFile::Parsed parsed = RegFile::parse(in.readAll());
        if (!parsed.error.isEmpty()) return m_ctx.inputError(file + ": " + parsed.error);
        return RegFile::apply(m_hive, parsed) ? ToolContext::kOk
                                              : m_ctx.inputError("cannot write the settings");
    }

    ToolContext& m_ctx;
    RegistryHive& m_hive;
};

} // namespace

int runRegCommand(ToolContext& ctx, QStringList args) {
    return RegCommand(ctx).run(args);
}
