// Lies over the fields of the wall and draws them, all with one painter: fields that were drawn one by one
// would cost half as much again, and up to 121 of them change twenty times a second while a sequence blends.
// The mouse does not see it.
#pragma once

#include <QWidget>

#include <vector>

namespace quorvane {

class WallElement;

class WallSurface : public QWidget {
public:
    // The fields lie in parent and cover it without gaps.
    WallSurface(const std::vector<WallElement*>& fields, QWidget* parent);

    // Has those fields drawn that have another colour by now, and the few that lie between them.
    void Refresh();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const std::vector<WallElement*>& fields;
};

} // namespace quorvane
