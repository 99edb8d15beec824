// A stand-in for Navit's D-Bus interface on the session bus: it writes each call as one line
// "method|arg|arg" into the file named by its first argument. With "hang" as second argument it
// never answers a set_destination within the callers' patience. Its map centre is the
// Oktoberfest's, 11.54967 E 48.13548 N, in Navit's Mercator metres (radius 6371000 m).
#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QFile>
#include <QThread>

class NavitStandIn : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.navit_project.navit.navit")
public:
    NavitStandIn(QString record, bool hang) : m_record(std::move(record)), m_hang(hang) {}

public Q_SLOTS:
    Q_SCRIPTABLE void set_destination(const QString& position, const QString& name) {
        if (m_hang) QThread::sleep(10);
        write(QStringLiteral("set_destination|%1|%2").arg(position, name));
    }
    Q_SCRIPTABLE void zoom(int factor) { write(QStringLiteral("zoom|%1").arg(factor)); }
    Q_SCRIPTABLE void get_attr(const QString& name, const QDBusMessage& message) {
        QDBusArgument centre;
        centre.beginStructure();
        centre << 1 << 1284265 << 6122565; // projection "mg", x, y
        centre.endStructure();
        message.setDelayedReply(true);
        QDBusConnection::sessionBus().send(
            message.createReply({name, QVariant::fromValue(QDBusVariant(QVariant::fromValue(centre)))}));
    }

private:
    void write(const QString& line) {
        QFile file(m_record);
        if (file.open(QIODevice::Append)) file.write(line.toUtf8() + '\n');
    }
    QString m_record;
    bool m_hang;
};

int main(int argc, char* argv[]) {
    QCoreApplication app(argc, argv);
    if (argc < 2) return 2;
    NavitStandIn standIn(QString::fromLocal8Bit(argv[1]), argc > 2 && qstrcmp(argv[2], "hang") == 0);
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.registerObject(QStringLiteral("/org/navit_project/navit/default_navit"), &standIn,
                            QDBusConnection::ExportScriptableSlots) ||
        !bus.registerService(QStringLiteral("org.navit_project.navit")))
        return 1;
    return app.exec();
}

#include "navit_standin.moc"
