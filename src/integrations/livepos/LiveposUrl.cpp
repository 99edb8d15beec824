#include "integrations/livepos/LiveposUrl.h"

#include "integrations/livepos/LiveposSettings.h"
#include "settings/CRegistryKey.h"

namespace {

constexpr double kKnotsPerKmh = 1.0 / 1.852;

} // namespace

LiveposAccount LiveposAccount::FromSettings() {
    CRegistryKey key;
    return {readSetting(key, LiveposSettings::kNickName), readSetting(key, LiveposSettings::kPassword),
            readSetting(key, LiveposSettings::kComment), readSetting(key, LiveposSettings::kUrlSendPos)};
}

bool LiveposAccount::Set(const QString& name, const QString& value) {
    QString* fields[] = {&strNickName, &strPassword, &strComment, &strSendTemplate};
    const QString names[] = {LiveposSettings::kNickName.name(), LiveposSettings::kPassword.name(),
                             LiveposSettings::kComment.name(), LiveposSettings::kUrlSendPos.name()};
    for (int i = 0; i < 4; ++i)
        if (name.compare(names[i], Qt::CaseInsensitive) == 0) {
            *fields[i] = value;
            return true;
        }
    return false;
}

namespace LiveposUrl {

QString Expand(const QString& templ, const QString& nickName, const QString& password, const QString& comment,
               const LiveposFix& fix, const TemplateExpander& expand) {
    QString url = templ;
    url.replace(QStringLiteral("%NickName%"), nickName);
    url.replace(QStringLiteral("%PassWD%"), password);
    url.replace(QStringLiteral("%Comment%"), comment);
    url.replace(QStringLiteral("%UnixTime%"), QString::number(fix.tUtc));
    url.replace(QStringLiteral("%Knots%"), QString::asprintf("%.1f", fix.fSpeed * kKnotsPerKmh));
    url.replace(QStringLiteral("%Bearing%"), QString::asprintf("%.1f", fix.fCourse));
    return expand ? expand(url) : url;
}

bool BuildSendUrl(const LiveposAccount& account, const LiveposFix& fix, const TemplateExpander& expand,
                  QString& url, QString& error) {
    if (account.strNickName.isEmpty()) {
        error = QString::fromLatin1(kNoNickName);
        return false;
    }
    url = Expand(account.strSendTemplate, account.strNickName, account.strPassword, account.strComment, fix,
                 expand);
    return true;
}

QString BuildGetUrl(const QString& nickName, const QString& password, const TemplateExpander& expand) {
    CRegistryKey key;
    QString url = readSetting(key, LiveposSettings::kUrlGetPos);
    url.replace(QStringLiteral("%NickName%"), nickName);
    url.replace(QStringLiteral("%PassWD%"), password);
    return expand ? expand(url) : url;
}

QString TraccarTemplate(const QString& server) {
    QString base = server.trimmed();
    while (base.endsWith(u'/'))
        base.chop(1);
    return base + QStringLiteral("/?id=%NickName%&lat=%Lat:3%&lon=%Long:3%&timestamp=%UnixTime%&speed=%Knots%"
                                 "&bearing=%Bearing%&altitude=%Altitude%&hdop=%HDOP%");
}

} // namespace LiveposUrl
