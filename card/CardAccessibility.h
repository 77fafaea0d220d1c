#pragma once

/// Makes screen readers announce a card by its name when the focus enters it, as they do with a group box.
/// Call it once, after the application object exists.
void announceCardsAsGroups();
