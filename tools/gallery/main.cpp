#include <cstdio>
#include <string>

#include "platform/basic/Error.h"
#include "tools/gallery/frmGallery.h"
#include "tools/gallery/frmGrids.h"

namespace {

template <class Gallery>
int Run(const char* picture) {
    auto& gallery = forms::Default<Gallery>();
    if (picture) return gallery.WritePicture(picture) ? 0 : 1;
    gallery.Show(forms::vbModal);
    return 0;
}

}  // namespace

// Shows every control with the log of its events; after the word "grids" the grids, the list view and the
// tree. With the name of a PNG file it writes a picture of the window there instead.
int main(int argc, char** argv) try {
    const bool grids = argc > 1 && std::string(argv[1]) == "grids";
    const char* const picture = argc > (grids ? 2 : 1) ? argv[grids ? 2 : 1] : nullptr;
    return grids ? Run<frmGrids>(picture) : Run<frmGallery>(picture);
} catch (const basic::Error& e) {
    std::fprintf(stderr, "%s\n", e.Description.c_str());
    return 1;
}
