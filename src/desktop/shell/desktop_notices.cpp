#include "desktop/shell/desktop_notices.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QGuiApplication>

namespace desktop {
namespace {

constexpr char kService[] = "org.freedesktop.Notifications";
constexpr char kPath[] = "/org/freedesktop/Notifications";
constexpr char kWhenPressed[] = "default";
constexpr int kAsLongAsUsual = -1;

}  // namespace

DesktopNotices::DesktopNotices(QObject* parent) : QObject(parent) {
  QDBusConnection::sessionBus().connect(QString::fromLatin1(kService), QString::fromLatin1(kPath),
                                        QString::fromLatin1(kService), QStringLiteral("ActionInvoked"), this,
                                        SLOT(TakeAction(uint, QString)));
}

void DesktopNotices::Show(const QString& title, const QString& text) {
  const QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return;
  const QString service = QString::fromLatin1(kService);
  QDBusMessage call =
      QDBusMessage::createMethodCall(service, QString::fromLatin1(kPath), service, QStringLiteral("Notify"));
  const uint replaced = 0;
  const QStringList actions = {QString::fromLatin1(kWhenPressed), QStringLiteral("Mostrar")};
  const QVariantMap hints = {{QStringLiteral("desktop-entry"), QGuiApplication::desktopFileName()}};
  call.setArguments({QStringLiteral("Parvel"), replaced, QStringLiteral("parvel"), title,
                     text.toHtmlEscaped(), actions, hints, kAsLongAsUsual});
  auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
  connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
    const QDBusPendingReply<uint> id = *answer;
    if (id.isValid()) shown_.insert(id.value());
    answer->deleteLater();
  });
}

void DesktopNotices::TakeAction(uint id, const QString& action) {
  if (shown_.remove(id) && action == QLatin1String(kWhenPressed)) Q_EMIT Pressed();
}

}  // namespace desktop
