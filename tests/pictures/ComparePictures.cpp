// Compares two pictures as an eye does: each pixel by the mean of what is around it, so that an
// edge that is smoothed another way is none. Use: compare-pictures KEPT.png NEW.png DIFFERENCE.png
// PIXELS Ends with 1 where they are of different sizes or more than PIXELS pixels differ, which
// DIFFERENCE shows in red over the kept picture; with 2 where one cannot be read.
#include <cairo.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

constexpr int kReach = 1;         // pixels around
constexpr int kLeastChange = 24;  // of 255, of red, green or blue

struct Destroy {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using Surface = std::unique_ptr<cairo_surface_t, Destroy>;

/// The picture on white, so that what is transparent has a colour.
Surface Load(const char* path) {
  const Surface read(cairo_image_surface_create_from_png(path));
  if (cairo_surface_status(read.get()) != CAIRO_STATUS_SUCCESS) {
    std::fprintf(stderr, "%s cannot be read\n", path);
    std::exit(2);
  }
  Surface picture(cairo_image_surface_create(CAIRO_FORMAT_RGB24,
                                             cairo_image_surface_get_width(read.get()),
                                             cairo_image_surface_get_height(read.get())));
  cairo_t* const context = cairo_create(picture.get());
  cairo_set_source_rgb(context, 1, 1, 1);
  cairo_paint(context);
  cairo_set_source_surface(context, read.get(), 0, 0);
  cairo_paint(context);
  cairo_destroy(context);
  cairo_surface_flush(picture.get());
  return picture;
}

class Pixels {
 public:
  explicit Pixels(cairo_surface_t* surface)
      : width(cairo_image_surface_get_width(surface)),
        height(cairo_image_surface_get_height(surface)),
        stride_(cairo_image_surface_get_stride(surface)),
        data_(cairo_image_surface_get_data(surface)) {}

  std::uint32_t& At(int x, int y) const {
    return reinterpret_cast<std::uint32_t*>(data_ + y * stride_)[x];
  }
  /// The mean of one colour, which stands `shift` bits up, around a pixel.
  int Around(int x, int y, int shift) const {
    int sum = 0, count = 0;
    for (int j = std::max(y - kReach, 0); j <= std::min(y + kReach, height - 1); ++j)
      for (int i = std::max(x - kReach, 0); i <= std::min(x + kReach, width - 1); ++i, ++count)
        sum += static_cast<int>(At(i, j) >> shift & 0xFF);
    return sum / count;
  }

  const int width, height;

 private:
  int stride_;
  unsigned char* data_;
};

bool Differ(const Pixels& a, const Pixels& b, int x, int y) {
  for (const int shift : {0, 8, 16})
    if (std::abs(a.Around(x, y, shift) - b.Around(x, y, shift)) > kLeastChange) return true;
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 5) return 2;
  const Surface kept = Load(argv[1]), made = Load(argv[2]), shown = Load(argv[1]);
  const Pixels before(kept.get()), after(made.get()), difference(shown.get());
  if (before.width != after.width || before.height != after.height) {
    std::printf("%d x %d, not %d x %d\n", after.width, after.height, before.width, before.height);
    return 1;
  }
  constexpr std::uint32_t kRed = 0xFF0000;
  int count = 0;
  for (int y = 0; y < before.height; ++y)
    for (int x = 0; x < before.width; ++x)
      if (Differ(before, after, x, y)) difference.At(x, y) = kRed, ++count;
  if (count <= std::atoi(argv[4])) return 0;
  std::printf("%d pixels differ\n", count);
  cairo_surface_mark_dirty(shown.get());
  cairo_surface_write_to_png(shown.get(), argv[3]);
  return 1;
}
