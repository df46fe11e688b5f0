#include "reader/HeifImage.h"

#include <leptonica/allheaders.h>
#include <libheif/heif.h>

namespace fiscarel::reader {

namespace {

struct HeifFree {
    void operator()(heif_context* context) const noexcept { heif_context_free(context); }
    void operator()(heif_image_handle* handle) const noexcept { heif_image_handle_release(handle); }
    void operator()(heif_image* image) const noexcept { heif_image_release(image); }
};
template <class T>
using Heif = std::unique_ptr<T, HeifFree>;

struct Opened {
    Heif<heif_context> context;
    Heif<heif_image_handle> handle;
};

Opened open(std::string_view file) {
    Opened opened{.context = Heif<heif_context>(heif_context_alloc()), .handle = nullptr};
    heif_image_handle* handle = nullptr;
    if (opened.context
        && heif_context_read_from_memory_without_copy(opened.context.get(), file.data(),
                                                      file.size(), nullptr)
                   .code
               == heif_error_Ok
        && heif_context_get_primary_image_handle(opened.context.get(), &handle).code
               == heif_error_Ok) {
        opened.handle.reset(handle);
    }
    return opened;
}

} // namespace

bool isHeif(std::string_view file) {
    if (file.size() < 12 || file.substr(4, 4) != "ftyp") {
        return false;
    }
    const std::string_view brand = file.substr(8, 4);
    for (const std::string_view known : {"heic", "heix", "heim", "heis", "hevc", "mif1", "msf1"}) {
        if (brand == known) {
            return true;
        }
    }
    return false;
}

tl::expected<PageSize, Fault> heifSize(std::string_view file) {
    const Opened opened = open(file);
    if (!opened.handle) {
        return tl::unexpected<Fault>("Dieses Bild ist beschädigt und lässt sich nicht öffnen.");
    }
    return PageSize{static_cast<double>(heif_image_handle_get_width(opened.handle.get())),
                    static_cast<double>(heif_image_handle_get_height(opened.handle.get()))};
}

PixPtr decodeHeif(std::string_view file) {
    const Opened opened = open(file);
    heif_image* decoded = nullptr;
    if (!opened.handle
        || heif_decode_image(opened.handle.get(), &decoded, heif_colorspace_RGB,
                             heif_chroma_interleaved_RGB, nullptr)
                   .code
               != heif_error_Ok) {
        return nullptr;
    }
    const Heif<heif_image> image(decoded);
    int stride = 0;
    const std::uint8_t* const data =
        heif_image_get_plane_readonly(image.get(), heif_channel_interleaved, &stride);
    const int width = heif_image_get_width(image.get(), heif_channel_interleaved);
    const int height = heif_image_get_height(image.get(), heif_channel_interleaved);
    PixPtr pix(data == nullptr ? nullptr : pixCreateNoInit(width, height, 32));
    if (!pix) {
        return nullptr;
    }
    const int step = pixGetWpl(pix.get());
    for (int y = 0; y < height; ++y) {
        const std::uint8_t* from = data + std::ptrdiff_t{stride} * y;
        l_uint32* const to = pixGetData(pix.get()) + std::ptrdiff_t{step} * y;
        for (int x = 0; x < width; ++x, from += 3) {
            composeRGBPixel(from[0], from[1], from[2], &to[x]);
        }
    }
    return pix;
}

} // namespace fiscarel::reader
