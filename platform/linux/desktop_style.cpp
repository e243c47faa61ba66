#include "platform/linux/desktop_style.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QTranslator>

#include <optional>

namespace platform {
namespace {

const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colourScheme = QStringLiteral("color-scheme");
const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString object = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settings = QStringLiteral("org.freedesktop.portal.Settings");

constexpr uint dark = 1; // what the portal says for it

QPalette darkPalette() {
    const QColor window(0x2d, 0x2d, 0x2d);
    const QColor base(0x1f, 0x1f, 0x1f);
    const QColor text(0xee, 0xee, 0xee);
    const QColor faint(0x8a, 0x8a, 0x8a);
    QPalette colours(text, QColor(0x3a, 0x3a, 0x3a), QColor(0x55, 0x55, 0x55),
                     QColor(0x18, 0x18, 0x18), QColor(0x26, 0x26, 0x26), text, Qt::white, base,
                     window);
    colours.setColor(QPalette::AlternateBase, window);
    colours.setColor(QPalette::ToolTipBase, window);
    colours.setColor(QPalette::ToolTipText, text);
    colours.setColor(QPalette::PlaceholderText, faint);
    colours.setColor(QPalette::Highlight, QColor(0x2a, 0x6f, 0xb5));
    colours.setColor(QPalette::HighlightedText, Qt::white);
    colours.setColor(QPalette::Link, QColor(0x6c, 0xb2, 0xf2));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        colours.setColor(QPalette::Disabled, role, faint);
    return colours;
}

/// The preference as the desktop keeps it up to date.
class Preference : public QObject {
    Q_OBJECT

  public:
    void ask();

  public slots:
    void changed(const QString& group, const QString& key, const QDBusVariant& value) {
        if (group == appearance && key == colourScheme) apply(value.variant());
    }

  private:
    /// Whether there is an answer, be it that there is none to be had.
    static bool answers(const QDBusMessage& answer);
    void apply(QVariant value);

    bool known_ = false;
    std::optional<QPalette> light_; ///< as it was before the dark one
};

bool Preference::answers(const QDBusMessage& answer) {
    return answer.type() == QDBusMessage::ReplyMessage ||
           answer.errorName() != QLatin1String("org.freedesktop.DBus.Error.NoReply");
}

void Preference::ask() {
    if (known_ || !QDBusConnection::sessionBus().isConnected()) return;
    constexpr int patience = 100; // ms
    QDBusMessage call =
        QDBusMessage::createMethodCall(service, object, settings, QStringLiteral("Read"));
    call << appearance << colourScheme;
    const QDBusMessage answer = QDBusConnection::sessionBus().call(call, QDBus::Block, patience);
    known_ = answers(answer);
    if (answer.type() != QDBusMessage::ReplyMessage) return;
    apply(answer.arguments().value(0).value<QDBusVariant>().variant());
    QDBusConnection::sessionBus().connect(service, object, settings,
                                          QStringLiteral("SettingChanged"), this,
                                          SLOT(changed(QString, QString, QDBusVariant)));
}

void Preference::apply(QVariant value) {
    // Read puts the value into two envelopes.
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    if ((value.toUInt() == dark) == light_.has_value()) return;
    if (light_) {
        QApplication::setPalette(*light_);
        light_.reset();
        return;
    }
    light_ = QApplication::palette();
    QApplication::setPalette(darkPalette());
}

void speakUsersLanguage() {
    static bool done = false;
    if (done) return;
    done = true;
    auto* const words = new QTranslator(qApp);
    if (words->load(QLocale::system(), QStringLiteral("qtbase"), QStringLiteral("_"),
                    QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(words);
}

} // namespace

void followDesktop() {
    speakUsersLanguage();
    // Never destroyed: it may be told of a change at any time.
    static Preference& preference = *new Preference;
    preference.ask();
}

} // namespace platform

#include "desktop_style.moc"
