#include <cstdio>

#include "platform/basic/Error.h"
#include "platform/forms/gallery/frmGallery.h"

// Shows every control with the log of its events. With the name of a PNG file it writes a picture of the
// window there instead.
int main(int argc, char** argv) try {
    auto& gallery = forms::Default<frmGallery>();
    if (argc > 1) return gallery.WritePicture(argv[1]) ? 0 : 1;
    gallery.Show(forms::vbModal);
    return 0;
} catch (const basic::Error& e) {
    std::fprintf(stderr, "%s\n", e.Description.c_str());
    return 1;
}
