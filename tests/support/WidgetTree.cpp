#include "tests/support/WidgetTree.h"

#include <QAbstractButton>
#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMetaEnum>
#include <QPushButton>
#include <QScrollArea>
#include <QStyle>
#include <QTextBrowser>
#include <QTreeView>
#include <QWidget>

namespace {

QString sizeText(const QSize &size)
{
    return QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
}

QString policyText(const QSizePolicy &policy)
{
    const auto policies = QMetaEnum::fromType<QSizePolicy::Policy>();
    return QString::fromLatin1(policies.valueToKey(policy.horizontalPolicy())) + QLatin1Char('/') +
           QString::fromLatin1(policies.valueToKey(policy.verticalPolicy()));
}

/// Shape and shadow of a plain frame or of a label with one: those of other widgets belong to their classes.
QString frameText(const QWidget &widget)
{
    const auto *frame = qobject_cast<const QFrame *>(&widget);
    const auto *label = qobject_cast<const QLabel *>(&widget);
    if (frame == nullptr || (label == nullptr && widget.metaObject() != &QFrame::staticMetaObject) ||
        (label != nullptr && label->frameShape() == QFrame::NoFrame)) {
        return QString();
    }
    const auto shapes = QMetaEnum::fromType<QFrame::Shape>();
    const auto shadows = QMetaEnum::fromType<QFrame::Shadow>();
    return QLatin1Char(' ') + QString::fromLatin1(shapes.valueToKey(frame->frameShape())) + QLatin1Char('/') +
           QString::fromLatin1(shadows.valueToKey(frame->frameShadow()));
}

/// Whether the widgets inside it are Qt's, which differ between styles and systems.
bool makesItsOwnContents(const QWidget &widget)
{
    return qobject_cast<const QAbstractScrollArea *>(&widget) != nullptr ||
           qobject_cast<const QDialogButtonBox *>(&widget) != nullptr;
}

/// What the form has set of a font.
QString fontText(const QFont &font)
{
    return ((font.resolve() & QFont::FamilyResolved) != 0 ? font.family() + QLatin1Char(' ') : QString()) +
           ((font.resolve() & QFont::SizeResolved) != 0 ? QString::number(font.pointSize()) : QString());
}

QString ownText(const QWidget &widget)
{
    if (const auto *button = qobject_cast<const QAbstractButton *>(&widget)) {
        return button->text();
    }
    if (const auto *label = qobject_cast<const QLabel *>(&widget)) {
        return label->text();
    }
    if (const auto *group = qobject_cast<const QGroupBox *>(&widget)) {
        return group->title();
    }
    return QString();
}

/// The layout, among @p layout and those in it, that contains @p widget, and its index; or null.
QLayout *holderOf(const QWidget &widget, QLayout *layout, int &index)
{
    for (int i = 0; layout != nullptr && i < layout->count(); ++i) {
        if (layout->itemAt(i)->widget() == &widget) {
            index = i;
            return layout;
        }
        if (QLayout *found = holderOf(widget, layout->itemAt(i)->layout(), index)) {
            return found;
        }
    }
    return nullptr;
}

QString placeText(const QWidget &widget)
{
    int index = -1;
    const QWidget *parent = widget.parentWidget();
    QLayout *holder = parent == nullptr ? nullptr : holderOf(widget, parent->layout(), index);
    if (holder == nullptr) {
        return QString();
    }
    if (const auto *grid = qobject_cast<QGridLayout *>(holder)) {
        int row = -1;
        int column = -1;
        int rows = 0;
        int columns = 0;
        grid->getItemPosition(index, &row, &column, &rows, &columns);
        return QStringLiteral(" in %1 at %2,%3 over %4x%5")
            .arg(holder->objectName())
            .arg(row)
            .arg(column)
            .arg(rows)
            .arg(columns);
    }
    return QStringLiteral(" in %1 at %2").arg(holder->objectName()).arg(index);
}

QString describe(const QWidget &widget)
{
    const QWidget fresh;
    QString line =
        QString::fromLatin1(widget.metaObject()->className()) + QLatin1Char(' ') + widget.objectName();
    if (!ownText(widget).isEmpty()) {
        line += QStringLiteral(" \"%1\"").arg(ownText(widget));
    }
    line += frameText(widget);
    if (widget.minimumSize() != fresh.minimumSize()) {
        line += QStringLiteral(" min ") + sizeText(widget.minimumSize());
    }
    if (widget.maximumSize() != fresh.maximumSize()) {
        line += QStringLiteral(" max ") + sizeText(widget.maximumSize());
    }
    line += QLatin1Char(' ') + policyText(widget.sizePolicy()) + placeText(widget);
    if (!widget.toolTip().isEmpty()) {
        line += QStringLiteral(" tip: ") + widget.toolTip();
    }
    return line;
}

void describeBelow(const QWidget &widget, QStringList &lines)
{
    lines.append(describe(widget));
    for (const QObject *child : widget.children()) {
        const auto *below = qobject_cast<const QWidget *>(child);
        if (below != nullptr && !makesItsOwnContents(widget)) {
            describeBelow(*below, lines);
        }
    }
}

QString describeItem(QLayoutItem &item)
{
    if (const QWidget *widget = item.widget()) {
        return widget->objectName().isEmpty() ? ownText(*widget) : widget->objectName();
    }
    if (QSpacerItem *spacer = item.spacerItem()) {
        return QStringLiteral("spacer %1 %2")
            .arg(sizeText(spacer->sizeHint()), policyText(spacer->sizePolicy()));
    }
    return item.layout()->objectName();
}

QStringList controlProperties(const QWidget &widget)
{
    QStringList properties;
    if (!widget.styleSheet().isEmpty()) {
        properties.append(QStringLiteral("style ") + QString(widget.styleSheet()).replace('\n', ' '));
    }
    if (widget.testAttribute(Qt::WA_SetFont)) {
        properties.append(QStringLiteral("font ") + fontText(widget.font()));
    }
    if (qobject_cast<const QLabel *>(&widget) != nullptr && widget.acceptDrops()) {
        properties.append(QStringLiteral("takes drops"));
    }
    if (const auto *line = qobject_cast<const QLineEdit *>(&widget)) {
        properties.append(QStringLiteral("placeholder ") + line->placeholderText());
    }
    if (const auto *tree = qobject_cast<const QTreeView *>(&widget)) {
        properties.append(QStringLiteral("edit triggers %1, %2, %3, %4, %5, %6")
                              .arg(tree->editTriggers())
                              .arg(tree->rootIsDecorated() ? "decorated" : "plain")
                              .arg(tree->uniformRowHeights() ? "uniform rows" : "rows of any height")
                              .arg(tree->itemsExpandable() ? "expandable" : "not expandable")
                              .arg(tree->isSortingEnabled() ? "sorting" : "not sorting")
                              .arg(tree->isHeaderHidden() ? "no header" : "header"));
    }
    if (const auto *button = qobject_cast<const QPushButton *>(&widget)) {
        if (button->isFlat()) {
            properties.append(QStringLiteral("flat"));
        }
        constexpr int largestOfStyles = 32;
        if (button->iconSize().width() > largestOfStyles) {
            properties.append(QStringLiteral("icon ") + sizeText(button->iconSize()));
        }
        if (!button->isEnabled()) {
            properties.append(QStringLiteral("disabled"));
        }
    }
    if (const auto *browser = qobject_cast<const QTextBrowser *>(&widget)) {
        properties.append(browser->openLinks() ? QStringLiteral("opens links")
                                               : QStringLiteral("leaves links"));
        if (browser->openExternalLinks()) {
            properties.append(QStringLiteral("opens external links"));
        }
    }
    if (const auto *text = qobject_cast<const QTextEdit *>(&widget)) {
        properties.append(text->isReadOnly() ? QStringLiteral("read-only") : QStringLiteral("editable"));
    }
    if (const auto *area = qobject_cast<const QScrollArea *>(&widget)) {
        properties.append(QStringLiteral("scroll bars %1/%2, adjusts %3, %4")
                              .arg(area->horizontalScrollBarPolicy())
                              .arg(area->verticalScrollBarPolicy())
                              .arg(area->sizeAdjustPolicy())
                              .arg(area->widgetResizable() ? QStringLiteral("resizes its contents")
                                                           : QStringLiteral("leaves its contents")));
    }
    if (const auto *box = qobject_cast<const QDialogButtonBox *>(&widget)) {
        properties.append(QStringLiteral("buttons 0x%1, orientation %2")
                              .arg(int(box->standardButtons()), 0, 16)
                              .arg(box->orientation()));
    }
    return properties;
}

} // namespace

QStringList describeControls(const QWidget &root)
{
    QStringList lines;
    for (const QWidget *widget : root.findChildren<QWidget *>()) {
        const QStringList properties = controlProperties(*widget);
        if (!properties.isEmpty()) {
            const QString name = widget->objectName().isEmpty() ? ownText(*widget) : widget->objectName();
            lines.append(name + QStringLiteral(": ") + properties.join(QStringLiteral("; ")));
        }
    }
    return lines;
}

QStringList describeWidgets(const QWidget &root)
{
    QStringList lines;
    describeBelow(root, lines);
    return lines;
}

QStringList describeLayouts(const QLayout &layout)
{
    QStringList items;
    QStringList below;
    for (int i = 0; i < layout.count(); ++i) {
        QLayoutItem *item = layout.itemAt(i);
        items.append(describeItem(*item));
        if (const QLayout *inner = item->layout()) {
            below += describeLayouts(*inner);
        } else if (const QWidget *widget = item->widget();
                   widget != nullptr && widget->layout() != nullptr && !makesItsOwnContents(*widget)) {
            below += describeLayouts(*widget->layout());
        }
    }
    const QMargins margins = layout.contentsMargins();
    return QStringList{QStringLiteral("%1 %2 spacing %3 margins %4,%5,%6,%7: %8")
                           .arg(QString::fromLatin1(layout.metaObject()->className()), layout.objectName())
                           .arg(layout.spacing())
                           .arg(margins.left())
                           .arg(margins.top())
                           .arg(margins.right())
                           .arg(margins.bottom())
                           .arg(items.join(QStringLiteral(" | ")))} +
           below;
}

QStringList describeForm(QWidget &form)
{
    const auto margin = [&](QStyle::PixelMetric metric) {
        return form.style()->pixelMetric(metric, nullptr, &form);
    };
    if (form.layout()->contentsMargins() ==
        QMargins(margin(QStyle::PM_LayoutLeftMargin), margin(QStyle::PM_LayoutTopMargin),
                 margin(QStyle::PM_LayoutRightMargin), margin(QStyle::PM_LayoutBottomMargin))) {
        form.layout()->setContentsMargins(0, 0, 0, 0);
    }
    for (QLayout *layout : form.findChildren<QLayout *>()) {
        layout->setSpacing(0);
    }
    const QString window = QStringLiteral("\"%1\" %2").arg(form.windowTitle(), sizeText(form.size())) +
                           (form.isModal() ? " modal" : "") +
                           (form.windowFlags().testFlag(Qt::WindowContextHelpButtonHint) ? " help" : "");
    return QStringList{window} + describeWidgets(form) + describeLayouts(*form.layout()) +
           describeControls(form);
}
