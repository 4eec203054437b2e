// Draws every registered picture, enlarged, on one PNG sheet: qm_picture_sheet out.png [scale]
#include <fstream>
#include <iostream>
#include <string>

#include "PngWriter.h"
#include "QuillmarkResources.h"

namespace {

void Blit(vb::Picture& sheet, const vb::Picture& picture, int left, int top, int scale) {
  for (int y = 0; y < picture.height * scale; ++y)
    for (int x = 0; x < picture.width * scale; ++x) {
      std::uint32_t pixel = picture.pixels[(y / scale) * picture.width + x / scale];
      if (pixel >> 24) sheet.pixels[(top + y) * sheet.width + left + x] = pixel;
    }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::cerr << "usage: qm_picture_sheet out.png [scale]\n";
    return 2;
  }
  int scale = argc > 2 ? std::stoi(argv[2]) : 4;
  vb::Resources resources;
  quillmark::RegisterQuillmarkResources(resources);
  std::vector<vb::Picture> pictures;
  for (int id : resources.Numbers()) pictures.push_back(resources.LoadResPicture(id));
  pictures.push_back(resources.LoadResPicture(u"NewMember"));
  for (auto key : quillmark::ImageListKeys()) pictures.push_back(resources.LoadResPicture(key));

  const int cell = 16 * scale + 8, columns = 8;
  const int rows = (static_cast<int>(pictures.size()) + columns - 1) / columns;
  // A face-coloured background, as the IDE's toolbars show them.
  vb::Picture sheet{columns * cell, rows * cell,
                    std::vector<std::uint32_t>(columns * cell * rows * cell, 0xFFD4D0C8)};
  for (std::size_t i = 0; i < pictures.size(); ++i)
    Blit(sheet, pictures[i], static_cast<int>(i % columns) * cell + 4,
         static_cast<int>(i / columns) * cell + 4, scale);
  std::ofstream(argv[1], std::ios::binary) << quillmark::EncodePng(sheet);
  std::cout << pictures.size() << " pictures\n";
}
