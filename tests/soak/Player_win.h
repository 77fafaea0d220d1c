#pragma once

#include "tests/soak/Dice.h"
#include "tests/soak/Program_win.h"

#include <QStringList>

/// Uses the program at random, as a user does who does not know what he wants.
class Player {
public:
    /// @p licenses are paths of files that it may install. @p program must outlive it.
    Player(const Program &program, quint64 seed, const QStringList &licenses);

    /// Does one thing; says what, in a few words.
    QString act();

    /// Does one thing that leads back to the main window alone, maximised; says what, or nothing when there
    /// is nothing more to do.
    QString putAway();

    /// The licence files that have been dropped or chosen so far.
    QStringList offered() const { return offeredLicenses; }
    /// Those of them that have been chosen.
    QStringList chosen() const { return chosenLicenses; }

private:
    QString click(const ProgramWindow &window, int times);
    QString rightClick(const ProgramWindow &window);
    QString drag(const ProgramWindow &window);
    QString turn(const ProgramWindow &window);
    QString press();
    QString type();
    QString reshape(const ProgramWindow &window);
    QString answer(const ProgramWindow &window);
    QString chooseLicense(const ProgramWindow &dialog);
    QString dropLicense(const ProgramWindow &window);
    QPoint somewhere(const ProgramWindow &window);

    const Program &program;
    Dice dice;
    QStringList licenses;
    QStringList offeredLicenses;
    QStringList chosenLicenses;
};
