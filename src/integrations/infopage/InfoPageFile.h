#pragma once

#include "integrations/infopage/InfoElementSpec.h"

#include <QHash>
#include <functional>
#include <optional>

// A page file ("*.ini" of the program folder, or "MNInfo.ini"): its name, its background and its
// elements with their variant sections. Only reads; the pages and the overlay build on it.
class InfoPageFile {
public:
    static constexpr const char* kDefaultListSection = "Buttons";
    // More elements than a screen can hold are not read: a damaged or generated file must not
    // stall the page.
    static constexpr int kMaxElements = 256;

    // Reads a file; `baseFolder` (default: the file's folder) anchors relative bitmap paths. False
    // when the file cannot be read, which leaves an empty page.
    bool Load(const QString& path, const QString& listSection = {}, const QString& baseFolder = {});
    void LoadFromBytes(const QByteArray& bytes, const QString& baseFolder, const QString& listSection = {});

    // "Global" "Name"; empty when there is none (then the file is no user page).
    const QString& Name() const { return m_strName; }
    // "BGImage" as a host path that exists, tried as written, then in the program folder; empty
    // when not given or not found.
    const QString& BackgroundImage() const { return m_strBackgroundImage; }
    bool HasBackgroundImageKey() const { return m_bBackgroundImageKey; }
    // "BGColor", used only when "BGImage" is not given.
    std::optional<Colour> BackgroundColour() const { return m_backgroundColour; }
    // The listed names that have a section, in file order; "MN_Info_0" ... "MN_Info_9" when the list
    // section is missing.
    const QStringList& ElementNames() const { return m_elementNames; }

    // The element in `state`: its keys from the first of "<name>_<state>", "<name>_0", "<name>" that
    // has a "Type"; nothing when none has.
    std::optional<InfoElementSpec> ReadElement(const QString& name, int state) const;
    // Whether "<name>_<state>" has a "Type": a state the element can switch to.
    bool HasState(const QString& name, int state) const;
    // The state a switch element ("Type" 2) goes to when tapped: the next one that has a section of
    // its own, after the last one the first.
    uint8_t NextState(const QString& name, uint8_t state) const;
    bool HasSection(const QString& section) const { return Header(section) >= 0; }
    // A tap on an element in `state`: a switch ("Type" 2) steps `state` on and true says its window is
    // to be made anew; a button's "Action" goes to `onAction`. Display and "Passive" elements ignore it.
    bool Tap(const InfoElementSpec& spec, uint8_t& state,
             const std::function<void(const QString&)>& onAction) const;

private:
    // The header line of a section, -1 when there is none.
    int Header(const QString& section) const { return m_headers.value(section, -1); }
    bool Read(int header, const char* key, QString& value) const;
    void ReadKeys(int header, InfoElementSpec& spec) const;
    QString ElementBitmap(const QString& path) const;

    CIniFile m_ini;
    QHash<QString, int> m_headers; // first header of each section name
    QString m_strBaseFolder;
    QString m_strName;
    QString m_strBackgroundImage;
    bool m_bBackgroundImageKey = false;
    std::optional<Colour> m_backgroundColour;
    QStringList m_elementNames;
};
