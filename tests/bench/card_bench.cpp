// What cards cost: to build one more, against its form with the style sheet alone; and the shadows of their
// buttons in a full repaint of a window, against the same window without them.

#include "card/CardColumn.h"
#include "card/CardStyleSheets.h"
#include "card/SingleHalconVersionFrame.h"
#include "tests/bench/Figures.h"
#include "tests/support/Installations.h"
#include "tests/support/Messages.h"
#include "tests/support/Patience.h"
#include "ui_SingleHalconVersionFrame.h"

#include <QApplication>
#include <QGraphicsEffect>
#include <QPushButton>
#include <QScrollArea>

#include <cstdio>
#include <memory>

namespace {

HalconInstallation installation(int number)
{
    HalconInstallation installation = installationIn(QString("C:\\HALCON %1").arg(number));
    installation.minor = number;
    return installation;
}

void compareCards()
{
    QWidget window;
    std::unique_ptr<QFrame> card;
    Ui::SingleHalconVersionFrame form;
    const auto formAlone = [&] {
        card = std::make_unique<QFrame>(&window);
        form.setupUi(card.get());
        card->setStyleSheet(cardStyleSheet(cardColour(20)));
    };
    const auto wholeCard = [&] {
        card = std::make_unique<SingleHalconVersionFrame>(installation(11), &window);
    };
    // The first of each loads what the others use as well.
    formAlone();
    wholeCard();
    compareTimes("one more card", formAlone, wholeCard, [&] { card.reset(); });
}

bool compareRepaints(int cards)
{
    QList<HalconInstallation> installations;
    for (int number = 1; number <= cards; ++number) {
        installations.append(installation(number));
    }
    // As in the program's window, of many cards some are in sight.
    QScrollArea window;
    window.setWidgetResizable(true);
    auto *column = new CardColumn(installations);
    window.setWidget(column);
    window.resize(1366, 768);
    window.show();
    if (!eventuallyExposed(&window)) {
        return false;
    }
    const auto showShadows = [&](bool shown) {
        const auto buttons = column->findChildren<QPushButton *>();
        for (const QPushButton *button : buttons) {
            if (QGraphicsEffect *shadow = button->graphicsEffect()) {
                shadow->setEnabled(shown);
            }
        }
        QCoreApplication::processEvents();
    };
    bool shadows = true;
    const auto otherwise = [&] { showShadows(shadows = !shadows); };
    otherwise();
    const QByteArray name = QByteArray("full repaint, ") + QByteArray::number(cards) + " cards";
    compareTimes(name, [&] { column->repaint(); }, [&] { column->repaint(); }, otherwise);
    return true;
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    const CaughtMessages messages;
    compareCards();
    if (!compareRepaints(12) || !compareRepaints(100)) {
        std::fprintf(stderr, "card-bench: the window does not show\n");
        return 1;
    }
    return 0;
}
