// corvinel._core: the private binding under the package's Python API.  It
// reads the registry and the locale records through the module's C surface
// and renders whole numpy columns with the interpreter lock released.
#include <langinfo.h>
#include <locale.h>
#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <array>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <string>
#include <tuple>
#include <vector>

#include "corvinel/fmtinfo.h"
#include "corvinel/locale_db.h"
#include "corvinel/version.h"
#include "render_columns.h"
#include "result_memory.h"

namespace py = pybind11;

namespace corvinel::python {
namespace {

// Locale item codes of the names the package shows.
constexpr int32_t kLanguageName = 1;
constexpr int32_t kCountryName = 3;
constexpr int32_t kLanguageCode = 4;
constexpr int32_t kCountryCode = 5;

using RegistryRow = std::tuple<std::string, int, int, int, int, int, int, int>;

std::vector<RegistryRow> registry() {
  std::vector<RegistryRow> rows;
  for (const fmtdesc &d : fmtinfo_eachfmt) {
    rows.emplace_back(std::string(d.name, static_cast<std::size_t>(d.namelen)), d.minw, d.maxw, d.defw, d.mind,
                      d.maxd, static_cast<int>(d.defd), d.kind);
  }
  return rows;
}

std::string locale_item(int32_t item, int32_t number) {
  std::array<char, CORVINEL_LOCALE_TEXT> text{};
  const int32_t length = getORBLocDB(text.data(), static_cast<int32_t>(text.size()), item, number);
  return length > 0 ? std::string(text.data(), static_cast<std::size_t>(length)) : std::string();
}

// (language code, country code, language name, country name) per record.
std::vector<std::tuple<std::string, std::string, std::string, std::string>> locale_records() {
  std::vector<std::tuple<std::string, std::string, std::string, std::string>> records;
  for (int32_t number = 1; number <= CORVINEL_LOCALE_RECORDS; ++number) {
    records.emplace_back(locale_item(kLanguageCode, number), locale_item(kCountryCode, number),
                         locale_item(kLanguageName, number), locale_item(kCountryName, number));
  }
  return records;
}

// A session for the C library locale `name` (its codeset is the encoding
// the formats write): (handle, codeset), handle 0 when the locale is not
// there.  Sessions live as long as the process; the package keeps one per
// encoding.
std::tuple<std::uintptr_t, std::string> open_session(const std::string &name) {
  const locale_t locale = newlocale(LC_ALL_MASK, name.c_str(), static_cast<locale_t>(0));
  if (locale == static_cast<locale_t>(0)) return {0, ""};
  return {reinterpret_cast<std::uintptr_t>(locale), nl_langinfo_l(CODESET, locale)};
}

// An uninitialised array of `count` texts of `slot` characters: every slot
// is written whole, NUL padding included.  A large one uses kept memory
// (result_memory.h), returned when numpy frees the array.
py::array result_array(std::size_t count, std::size_t slot) {
  const std::string text_type = "<U" + std::to_string(slot);
  const std::size_t slot_bytes = slot * sizeof(char32_t);
  if (count > std::numeric_limits<std::size_t>::max() / slot_bytes || count * slot_bytes < kKeptResultBytes) {
    return py::module_::import("numpy").attr("empty")(count, text_type);  // numpy says when it is too large
  }
  auto memory = std::make_unique<ResultMemory>(take_result_memory(count * slot_bytes));
  if (memory->data == nullptr) throw std::bad_alloc();
  void *data = memory->data;
  const py::capsule owner(memory.get(), [](void *kept) {
    const std::unique_ptr<ResultMemory> returned(static_cast<ResultMemory *>(kept));
    give_back_result_memory(*returned);
  });
  memory.release();  // the capsule owns it now
  return py::array(py::dtype(text_type), {count}, {slot_bytes}, static_cast<char32_t *>(data), owner);
}

py::array render(const py::array &values, int storage, int64_t ticks_per_second, int format_index, int32_t width,
                 int32_t decimals, int32_t locale_number, int kind, std::uintptr_t session_handle,
                 const std::string &codeset, bool strip, unsigned threads, const py::object &zone_offsets) {
  if (format_index < 0 || format_index >= CORVINEL_FORMAT_COUNT) throw py::value_error("no such format");
  if (session_handle == 0) throw py::value_error("no session");
  if (storage < 0 || storage > 2) throw py::value_error("no such storage");
  // Ticks come in numpy's units of seconds (whole days only for dates).
  const bool known_unit = ticks_per_second == 1 || ticks_per_second == 1000 || ticks_per_second == 1000000 ||
                          ticks_per_second == 1000000000 ||
                          (ticks_per_second == 0 && storage != static_cast<int>(ColumnStorage::kTimedelta64));
  if (storage != static_cast<int>(ColumnStorage::kDouble) && !known_unit) throw py::value_error("no such unit");
  Column column;
  column.storage = static_cast<ColumnStorage>(storage);
  column.ticks_per_second = ticks_per_second;
  py::array contiguous;
  if (column.storage == ColumnStorage::kDouble) {
    contiguous = py::array_t<double, py::array::c_style | py::array::forcecast>::ensure(values);
  } else {
    contiguous = py::array_t<int64_t, py::array::c_style | py::array::forcecast>::ensure(values);
  }
  if (!contiguous || contiguous.ndim() != 1) throw py::value_error("expected a one-dimensional column");
  column.data = contiguous.data();
  column.count = static_cast<std::size_t>(contiguous.shape(0));
  py::array_t<int32_t, py::array::c_style | py::array::forcecast> offsets;
  if (!zone_offsets.is_none()) {
    offsets = py::array_t<int32_t, py::array::c_style | py::array::forcecast>::ensure(zone_offsets);
    if (!offsets || offsets.ndim() != 1 || static_cast<std::size_t>(offsets.shape(0)) != column.count) {
      throw py::value_error("zone offsets must match the column");
    }
    column.zone_offsets = offsets.data();
  }

  Rendering rendering;
  rendering.render = fmtinfo_eachfmt[format_index].render;
  rendering.width = width;
  rendering.decimals = decimals;
  rendering.locale_number = locale_number;
  rendering.kind = static_cast<ValueKind>(kind);
  rendering.strip = strip;
  Session session;
  session.locale = reinterpret_cast<locale_t>(session_handle);
  session.codeset = codeset;
  session.utf8 = strncasecmp(codeset.c_str(), "utf8", 4) == 0 || strncasecmp(codeset.c_str(), "utf-8", 5) == 0;

  // A field holds at most `width` bytes, so at most `width` characters.
  const std::size_t slot = static_cast<std::size_t>(std::max<int32_t>(width, 1));
  const py::array result = result_array(column.count, slot);
  auto *out = static_cast<char32_t *>(const_cast<void *>(result.data()));
  int32_t failure = 0;
  {
    py::gil_scoped_release unlocked;
    failure = render_column(column, rendering, session, out, slot, threads);
  }
  if (failure != 0) throw std::runtime_error("format failed with result " + std::to_string(failure));
  return result;
}

}  // namespace
}  // namespace corvinel::python

PYBIND11_MODULE(_core, m) {
  using namespace corvinel::python;
  m.doc() = "corvinel's compiled binding; use the corvinel package instead.";
  m.attr("version") = py::str(corvinel_version);
  m.def("registry", &registry);
  m.def("locale_records", &locale_records);
  m.def("open_session", &open_session);
  m.def("render", &render, py::arg("values"), py::arg("storage"), py::arg("ticks_per_second"),
        py::arg("format_index"), py::arg("width"), py::arg("decimals"), py::arg("locale_number"), py::arg("kind"),
        py::arg("session"), py::arg("codeset"), py::arg("strip"), py::arg("threads"),
        py::arg("zone_offsets") = py::none());
}
