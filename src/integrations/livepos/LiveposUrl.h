#pragma once

#include <QString>
#include <cstdint>
#include <functional>

// The template expansion of the info variables ("%Long:2%", "%GPSTime%" ...): the one place where
// the template language plugs into the live position addresses.
using TemplateExpander = std::function<QString(const QString& text)>;

// The fix values that the live position fields of its own take, beyond the template language.
struct LiveposFix {
    int64_t tUtc = 0;  // seconds since 1970, UTC, of the fix
    float fSpeed = 0;  // km/h
    float fCourse = 0; // degrees true
};

// The own account's settings that a send address is built from.
struct LiveposAccount {
    QString strNickName;
    QString strPassword;
    QString strComment;
    QString strSendTemplate; // "LiveposUrlSendPos"

    static LiveposAccount FromSettings();
    // Takes one "LiveposNickName", "LiveposPassword", "LiveposComment" or "LiveposUrlSendPos"
    // value; false for any other name.
    bool Set(const QString& name, const QString& value);
};

namespace LiveposUrl {
inline constexpr const char* kNoNickName = "Please enter a Nick Name first!";

// Replaces "%NickName%", "%PassWD%" and "%Comment%" by the texts as they stand (no escaping), then
// the fields of our own ("%UnixTime%", "%Knots%", "%Bearing%", see docs/FORMATS.md), then hands
// the rest to the template expansion.
QString Expand(const QString& templ, const QString& nickName, const QString& password, const QString& comment,
               const LiveposFix& fix, const TemplateExpander& expand);

// The send address of `account`; false (and `error` = kNoNickName) without a nick name.
bool BuildSendUrl(const LiveposAccount& account, const LiveposFix& fix, const TemplateExpander& expand,
                  QString& url, QString& error);
// The look-up address for another user's nick name and password.
QString BuildGetUrl(const QString& nickName, const QString& password, const TemplateExpander& expand);

// The send template of a Traccar server (OsmAnd protocol) at `server`, e.g. "http://host:5055".
QString TraccarTemplate(const QString& server);
} // namespace LiveposUrl
