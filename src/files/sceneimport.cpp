#include "files/sceneimport.h"

#include "files/sectionedtext.h"
#include "model/colour.h"
#include "platform/host.h"

#include <algorithm>

namespace quorvane {

namespace {

// The two ends of the import. Reading beyond the source gives black and writing beyond the wall is
// dropped: the one place where such an index is no error, since the rows below run over the end.
struct Import {
    const Scene& Source;
    const int SourceElements;
    Scene& Target;
    int SourceElement = 1;
    int TargetElement = 1;

    void Put(const PerChannel<std::uint8_t>& colour) {
        if (TargetElement <= Show.ElementCount) Target[TargetElement] = colour;
        ++TargetElement;
    }
    void Copy() {
        Put(SourceElement <= SourceElements ? Source[SourceElement] : PerChannel<std::uint8_t>{});
        ++SourceElement;
    }
    void Blacken() { Put({}); }
};

} // namespace

void RequireImportSize(int columns, int rows) {
    if (columns < 1 || rows < 1 || columns * rows > MaxElements)
        throw ReadError("Die Größe der Wand ist ungültig.");
}

void MapScene(const Scene& source, int columns, int rows, Scene& target) {
    RequireImportSize(columns, rows);
    Import import{source, columns * rows, target};
    const int limit = std::min<int>(Show.ElementCount, columns * rows);
    // Not greater than: one row more is started when the limit was met exactly, on purpose.
    for (int copied = 0; copied <= limit;) {
        for (int column = 1; column <= columns && column <= Show.WallColumns; ++column, ++copied)
            import.Copy();
        import.SourceElement += std::max(0, columns - Show.WallColumns);
        for (int column = columns; column < Show.WallColumns; ++column) import.Blacken();
    }
    if (rows < Show.WallRows)
        while (import.TargetElement <= Show.ElementCount) import.Blacken();
}

bool WallToImportTo() {
    if (Show.ElementCount > 0) return true;
    ShowMessage("Keine Wand vorhanden. Auf eine  leere Wand kann nicht importiert werden!");
    return false;
}

bool ImportScene() {
    if (!WallToImportTo()) return false;
    Scene source;
    std::copy_n(Show.ElementValue.begin(), MaxElements, source.begin());
    Scene target = source;
    MapScene(source, Show.ImportX, Show.ImportY, target);
    for (int element = 1; element <= Show.ElementCount; ++element) {
        Show.ElementValue[element] = target[element];
        ShowWallColour(element - 1);
    }
    return true;
}

} // namespace quorvane
