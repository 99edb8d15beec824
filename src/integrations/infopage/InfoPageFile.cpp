#include "integrations/infopage/InfoPageFile.h"

#include "platform/DeviceRoot.h"

#include <QDir>
#include <QFileInfo>

namespace {

const QString kGlobal = QStringLiteral("Global");
constexpr int kMaxTexts = 64;

bool isHeader(const QString& line) {
    return line.size() > 2 && line.startsWith('[') && line.endsWith(']');
}

// A file that exists on this machine, for a path as the page file writes it.
QString existingHostPath(const QString& path) {
    const QString host = DeviceRoot::current().hostPath(path);
    return QFileInfo(host).isFile() ? host : QString();
}

} // namespace

Rect resolveElementRect(const Rect& pos, int width, int height) {
    if (pos.left >= 0 && pos.top >= 0) return pos;
    Rect rect = pos;
    if (rect.left < 0) rect.left += width;
    if (rect.top < 0) rect.top += height;
    if (rect.right < 1) rect.right += width;
    if (rect.bottom < 1) rect.bottom += height;
    return rect;
}

bool InfoPageFile::Load(const QString& path, const QString& listSection, const QString& baseFolder) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        LoadFromBytes({}, baseFolder, listSection);
        return false;
    }
    LoadFromBytes(file.readAll(), baseFolder.isEmpty() ? QFileInfo(path).absolutePath() : baseFolder,
                  listSection);
    return true;
}

void InfoPageFile::LoadFromBytes(const QByteArray& bytes, const QString& baseFolder,
                                 const QString& listSection) {
    *this = InfoPageFile();
    m_strBaseFolder = baseFolder;
    m_ini.LoadFromBytes(bytes);
    const QStringList& lines = m_ini.Lines();
    for (int i = 0; i < lines.size(); ++i)
        if (isHeader(lines[i])) m_headers.insert(lines[i].mid(1, lines[i].size() - 2), i);

    const int global = Header(kGlobal);
    Read(global, "Name", m_strName);
    QString text;
    if (Read(global, "BGImage", text)) {
        m_bBackgroundImageKey = true;
        m_strBackgroundImage = existingHostPath(text);
        if (m_strBackgroundImage.isEmpty())
            m_strBackgroundImage =
                existingHostPath(QDir(DeviceRoot::current().programFolder()).filePath(text));
    } else if (Read(global, "BGColor", text)) {
        Colour colour = 0;
        if (ValueText::parseColour(text, colour) == 3) m_backgroundColour = colour;
    }

    const int list = Header(listSection.isEmpty() ? QString::fromLatin1(kDefaultListSection) : listSection);
    if (list < 0) {
        for (int i = 0; i < 10; ++i)
            if (Header(QStringLiteral("MN_Info_%1").arg(i)) >= 0)
                m_elementNames << QStringLiteral("MN_Info_%1").arg(i);
        return;
    }
    for (int i = list + 1; i < lines.size() && !lines[i].startsWith('['); ++i) {
        if (m_elementNames.size() == kMaxElements) break;
        const QString name = lines[i].trimmed();
        // "Clock" is an element when it has a section of its own or its first variant "Clock_0".
        if (!name.isEmpty() && (Header(name) >= 0 || Header(name + "_0") >= 0)) m_elementNames << name;
    }
}

bool InfoPageFile::Read(int header, const char* key, QString& value) const {
    return header >= 0 && m_ini.FindKey(header + 1, QString::fromLatin1(key), value) >= 0;
}

bool InfoPageFile::HasState(const QString& name, int state) const {
    QString type;
    return Read(Header(QStringLiteral("%1_%2").arg(name).arg(state)), "Type", type);
}

uint8_t InfoPageFile::NextState(const QString& name, uint8_t state) const {
    const int nNext = state + 1;
    return nNext < 256 && HasState(name, nNext) ? static_cast<uint8_t>(nNext) : 0;
}

bool InfoPageFile::Tap(const InfoElementSpec& spec, uint8_t& state,
                       const std::function<void(const QString&)>& onAction) const {
    if (!spec.IsButton() || spec.bPassive) return false;
    const bool bSwitched = spec.nType == 2;
    if (bSwitched) state = NextState(spec.strName, state);
    if (!spec.strAction.isEmpty() && onAction) onAction(spec.strAction);
    return bSwitched;
}

std::optional<InfoElementSpec> InfoPageFile::ReadElement(const QString& name, int state) const {
    for (const QString& section : {QStringLiteral("%1_%2").arg(name).arg(state), name + "_0", name}) {
        const int header = Header(section);
        QString type;
        if (!Read(header, "Type", type)) continue;
        InfoElementSpec spec;
        spec.strName = name;
        spec.strSection = section;
        spec.nType = ValueText::wtol(type);
        ReadKeys(header, spec);
        LogFont font;
        if (m_ini.ReadFont(section, QStringLiteral("Font"), font)) spec.font = font;
        return spec;
    }
    return std::nullopt;
}

void InfoPageFile::ReadKeys(int header, InfoElementSpec& spec) const {
    QString text;
    const auto readInt = [&](const char* key, int32_t& value) {
        if (Read(header, key, text)) value = ValueText::wtol(text);
    };
    const auto readFlag = [&](const char* key, bool& value) {
        if (Read(header, key, text))
            value = text.contains(QStringLiteral("true")) || ValueText::wtol(text) >= 1;
    };
    const auto readColour = [&](const QString& key, std::optional<Colour>& value) {
        Colour colour = 0;
        if (Read(header, key.toLatin1().constData(), text) && ValueText::parseColour(text, colour) == 3)
            value = colour;
    };
    if (Read(header, "Pos", text)) spec.pos = ValueText::parseRect(text);
    Read(header, "Action", spec.strAction);
    spec.strAction = spec.strAction.trimmed();
    readFlag("Passive", spec.bPassive);
    readFlag("Topmost", spec.bTopmost);
    for (int i = 0; i < InfoElementSpec::kColourCount; ++i)
        readColour(QStringLiteral("Color_%1").arg(i), spec.colours[static_cast<size_t>(i)]);
    readInt("Format", spec.nFormat);
    spec.texts << (Read(header, "Text", text) ? text : QString());
    for (int i = 1;
         i < kMaxTexts && Read(header, QStringLiteral("Text_%1").arg(i).toLatin1().constData(), text); ++i)
        spec.texts << text;
    readInt("XOffset", spec.nXOffset);
    readInt("YOffset", spec.nYOffset);
    readInt("ROffset", spec.nROffset);
    readInt("BOffset", spec.nBOffset);
    if (Read(header, "Bitmap", text) && !text.trimmed().isEmpty())
        spec.strBitmap = ElementBitmap(text.trimmed());
    readColour(QStringLiteral("TransparentColor"), spec.transparentColour);
    readInt("Refresh", spec.nRefresh);
    spec.bRefreshFlag = spec.nRefresh != 1;
    readInt("NoMaskRefresh", spec.nNoMaskRefresh);
}

QString InfoPageFile::ElementBitmap(const QString& path) const {
    // "\x.bmp" is a path of the device; anything else lies beside the page file.
    if (path.startsWith('\\') || path.startsWith('/')) return DeviceRoot::current().hostPath(path);
    return QDir(m_strBaseFolder).filePath(QString(path).replace('\\', '/'));
}
