#pragma once

/// Makes screen readers announce a card by its name when the focus enters it, as they do with a group box. To be called
/// when there is an application object; once is enough.
void announceCardsAsGroups();
