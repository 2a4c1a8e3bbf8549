// JPEG files: gray and RGB, written with full chroma resolution.
#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "image_io.h"
// libjpeg's headers need <cstdio> before them
#include <jerror.h>
#include <jpeglib.h>

namespace tolk {

namespace {

constexpr int kQuality = 95;

// libjpeg leaves by longjmp: a function that calls setjmp keeps no object of its own.
struct ErrorHandler {
  jpeg_error_mgr manager;  // first: libjpeg hands out a pointer to it
  jmp_buf leave;
  char message[JMSG_LENGTH_MAX];

  ErrorHandler() {
    jpeg_std_error(&manager);
    manager.error_exit = onError;
    manager.emit_message = onMessage;
  }
  [[noreturn]] static void onError(j_common_ptr jpeg) {
    auto* handler = reinterpret_cast<ErrorHandler*>(jpeg->err);
    handler->manager.format_message(jpeg, handler->message);
    std::longjmp(handler->leave, 1);
  }
  // Cameras do leave stray bytes between markers; every other warning means lost samples.
  static void onMessage(j_common_ptr jpeg, int level) {
    if (level < 0 && jpeg->err->msg_code != JWRN_EXTRANEOUS_DATA) onError(jpeg);
  }
};

class JpegReader {
 public:
  explicit JpegReader(std::span<const uint8_t> file) : file_(file) { jpeg_.err = &errors_.manager; }
  JpegReader(const JpegReader&) = delete;
  JpegReader& operator=(const JpegReader&) = delete;
  ~JpegReader() { jpeg_destroy_decompress(&jpeg_); }

  Image read() {
    if (!readHeader()) fail();
    image_.allocate();
    if (!readRows()) fail();
    return std::move(image_);
  }

 private:
  [[noreturn]] void fail() { throw std::runtime_error(std::string("a bad JPEG image: ") + errors_.message); }

  bool readHeader() {
    if (setjmp(errors_.leave)) return false;
    jpeg_create_decompress(&jpeg_);
    jpeg_mem_src(&jpeg_, file_.data(), file_.size());
    jpeg_read_header(&jpeg_, TRUE);
    if (jpeg_.jpeg_color_space != JCS_GRAYSCALE) jpeg_.out_color_space = JCS_RGB;
    jpeg_start_decompress(&jpeg_);
    image_.width = static_cast<int32_t>(jpeg_.output_width);
    image_.height = static_cast<int32_t>(jpeg_.output_height);
    image_.channels = jpeg_.output_components;
    return true;
  }

  bool readRows() {
    if (setjmp(errors_.leave)) return false;
    while (jpeg_.output_scanline < jpeg_.output_height) {
      JSAMPROW row = image_.samples.data() + jpeg_.output_scanline * image_.rowBytes();
      jpeg_read_scanlines(&jpeg_, &row, 1);
    }
    jpeg_finish_decompress(&jpeg_);
    return true;
  }

  std::span<const uint8_t> file_;
  ErrorHandler errors_;
  jpeg_decompress_struct jpeg_ = {};
  Image image_;
};

class JpegWriter {
 public:
  explicit JpegWriter(const Image& image) : image_(image) { jpeg_.err = &errors_.manager; }
  JpegWriter(const JpegWriter&) = delete;
  JpegWriter& operator=(const JpegWriter&) = delete;
  ~JpegWriter() {
    jpeg_destroy_compress(&jpeg_);
    std::free(file_);
  }

  Bytes write() {
    if (!writeRows()) throw std::runtime_error(errors_.message);
    return Bytes(file_, file_ + size_);
  }

 private:
  bool writeRows() {
    if (setjmp(errors_.leave)) return false;
    jpeg_create_compress(&jpeg_);
    jpeg_mem_dest(&jpeg_, &file_, &size_);
    jpeg_.image_width = static_cast<JDIMENSION>(image_.width);
    jpeg_.image_height = static_cast<JDIMENSION>(image_.height);
    jpeg_.input_components = image_.channels;
    jpeg_.in_color_space = image_.channels == 3 ? JCS_RGB : JCS_GRAYSCALE;
    jpeg_set_defaults(&jpeg_);
    jpeg_set_quality(&jpeg_, kQuality, TRUE);
    jpeg_.comp_info[0].h_samp_factor = jpeg_.comp_info[0].v_samp_factor = 1;
    jpeg_start_compress(&jpeg_, TRUE);
    while (jpeg_.next_scanline < jpeg_.image_height) {
      auto* row = const_cast<JSAMPROW>(image_.samples.data() + jpeg_.next_scanline * image_.rowBytes());
      jpeg_write_scanlines(&jpeg_, &row, 1);
    }
    jpeg_finish_compress(&jpeg_);
    return true;
  }

  const Image& image_;
  ErrorHandler errors_;
  jpeg_compress_struct jpeg_ = {};
  unsigned char* file_ = nullptr;
  unsigned long size_ = 0;
};

}  // namespace

Image decodeJpeg(std::span<const uint8_t> file) { return JpegReader(file).read(); }
Bytes encodeJpeg(const Image& image) { return JpegWriter(image).write(); }

}  // namespace tolk
