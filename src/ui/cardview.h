// The bytes of the memory card, ten to a row below the line that numbers them. A row is read from the card
// when it first comes into view, so that a megabyte is there at once.
#pragma once

#include <QWidget>

#include <cstdint>

class QLabel;
class QListView;

namespace quorvane {

class CardRows;

class CardView : public QWidget {
public:
    CardView();

    QLabel* lblKopf;     // the line above
    QListView* lstKarte; // one row's text for each ten bytes

    // Begins anew with a card of this size; 0 shows nothing and touches no port.
    void ShowCard(std::int32_t bytes);
    void GoTo(std::int32_t address);

private:
    CardRows* rows;
};

} // namespace quorvane
