#include "card/CardAccessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QWidget>

namespace {

QAccessibleInterface *makeInterface(const QString &className, QObject *object)
{
    if (className != QLatin1String("SingleHalconVersionFrame")) {
        return nullptr;
    }
    return new QAccessibleWidget(static_cast<QWidget *>(object), QAccessible::Grouping);
}

} // namespace

void announceCardsAsGroups()
{
    QAccessible::installFactory(makeInterface);
}
