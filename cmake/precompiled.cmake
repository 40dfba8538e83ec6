# Headers that most files of a kind read are compiled once: that is half the time of a window's file. Every file names
# what it needs all the same, since scripts/lint and the package build with CMAKE_DISABLE_PRECOMPILE_HEADERS.
set(TV_WINDOW_HEADERS
  <QAction> <QApplication> <QCheckBox> <QComboBox> <QFileDialog> <QHBoxLayout> <QKeyEvent> <QLabel> <QLineEdit>
  <QLocale> <QMenu> <QMessageBox> <QPainter> <QPushButton> <QTimer> <QVBoxLayout>
  <algorithm> <functional> <map> <memory> <optional> <string> <string_view> <utility> <vector>)

# With the headers to be compiled, or with REUSE_FROM and a target that has them.
function(tv_precompile name)
  if("REUSE_FROM" IN_LIST ARGN)
    target_precompile_headers(${name} ${ARGN})
  else()
    target_precompile_headers(${name} PRIVATE ${ARGN})
  endif()
  # ccache tells by this which of them a file used.
  target_compile_options(${name} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
endfunction()
