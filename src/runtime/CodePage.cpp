// vb::CodePage::Find: the supported code pages, each an immutable object built at compile time.
#include "runtime/CodePage.h"

#include "runtime/TableCodePage.h"
#include "runtime/Utf8CodePage.h"

namespace vb {

namespace {

constinit const TableCodePage kPage874(codepages::kCp874);
constinit const TableCodePage kPage932(codepages::kCp932);
constinit const TableCodePage kPage936(codepages::kCp936);
constinit const TableCodePage kPage949(codepages::kCp949);
constinit const TableCodePage kPage950(codepages::kCp950);
constinit const TableCodePage kPage1250(codepages::kCp1250);
constinit const TableCodePage kPage1251(codepages::kCp1251);
constinit const TableCodePage kPage1252(codepages::kCp1252);
constinit const TableCodePage kPage1253(codepages::kCp1253);
constinit const TableCodePage kPage1254(codepages::kCp1254);
constinit const TableCodePage kPage1255(codepages::kCp1255);
constinit const TableCodePage kPage1256(codepages::kCp1256);
constinit const TableCodePage kPage1257(codepages::kCp1257);
constinit const TableCodePage kPage1258(codepages::kCp1258);
constinit const Utf8CodePage kPageUtf8;

}  // namespace

const CodePage* CodePage::Find(int number) {
  switch (number) {
    case 874:
      return &kPage874;
    case 932:
      return &kPage932;
    case 936:
      return &kPage936;
    case 949:
      return &kPage949;
    case 950:
      return &kPage950;
    case 1250:
      return &kPage1250;
    case 1251:
      return &kPage1251;
    case 1252:
      return &kPage1252;
    case 1253:
      return &kPage1253;
    case 1254:
      return &kPage1254;
    case 1255:
      return &kPage1255;
    case 1256:
      return &kPage1256;
    case 1257:
      return &kPage1257;
    case 1258:
      return &kPage1258;
    case 65001:
      return &kPageUtf8;
    default:
      return nullptr;
  }
}

const CodePage& CodePage::Windows1252() {
  return kPage1252;
}

}  // namespace vb
