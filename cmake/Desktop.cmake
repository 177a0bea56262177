# The windows of all folders, and the desktop program.
find_package(Qt6 6.4 REQUIRED COMPONENTS PrintSupport Widgets)

add_library(velmora_desktop STATIC
  app/ChildFrame.cpp
  app/Dialogs.cpp
  app/GrowthCurveView.cpp
  app/HelpDocument.cpp
  app/Idiomas.cpp
  app/MDIForm1.cpp
  app/MainMenu.cpp
  app/NumberEntry.cpp
  app/frmSobre.cpp
  app/frmSplash.cpp
  charts/ChartOutput.cpp
  charts/ChartPainter.cpp
  charts/ChartPrint.cpp
  charts/ChartView.cpp
  charts/LegendView.cpp
  charts/Markers.cpp
  charts/ZoomIcons.cpp
  charts/dlgIntervalos.cpp
  charts/dlgTituloGrafico.cpp
  charts/frmZoom.cpp
  cultivation/ChartsPanel.cpp
  cultivation/ChoicesPanel.cpp
  cultivation/ConditionsPanel.cpp
  cultivation/CultivationIcons.cpp
  cultivation/ExperimentPanel.cpp
  cultivation/FormEntry.cpp
  cultivation/ModelPanel.cpp
  cultivation/NumberBox.cpp
  cultivation/ParametersPanel.cpp
  cultivation/ReportPictures.cpp
  cultivation/ResultsPanel.cpp
  cultivation/RunControl.cpp
  cultivation/RunDisplay.cpp
  cultivation/RunPanel.cpp
  cultivation/ScoreView.cpp
  cultivation/frmCultBatelada.cpp
  cultivation/frmRelatorio.cpp
  data/ActionsPanel.cpp
  data/DescriptionBox.cpp
  data/DisplayPanel.cpp
  data/EntryPanel.cpp
  data/ExperimentGridModel.cpp
  data/ExperimentGridView.cpp
  data/ExperimentIcons.cpp
  data/HeaderPanel.cpp
  data/PlotsPanel.cpp
  data/WholeNumberBox.cpp
  data/frmMsFlexGrid.cpp
  estimation/frmParametros.cpp)
set_target_properties(velmora_desktop PROPERTIES AUTOMOC ON)
target_compile_definitions(velmora_desktop PUBLIC QT_NO_CONTEXTLESS_CONNECT QT_NO_CAST_FROM_ASCII)
target_link_libraries(velmora_desktop PUBLIC velmora_core Qt6::PrintSupport Qt6::Widgets
  PRIVATE velmora_warnings)

add_executable(velmora app/main.cpp)
target_link_libraries(velmora PRIVATE velmora_desktop velmora_warnings)

# The legend's pictures lie beside the program.
add_executable(velmora-images charts/WriteImages.cpp)
target_link_libraries(velmora-images PRIVATE velmora_desktop velmora_warnings)
set(velmora_image_stamp ${CMAKE_BINARY_DIR}/Imagens_Marcador/CircCheio.bmp)
add_custom_command(OUTPUT ${velmora_image_stamp}
  COMMAND velmora-images ${CMAKE_BINARY_DIR}
  DEPENDS velmora-images
  COMMENT "Drawing the legend's pictures")
add_custom_target(velmora_images ALL DEPENDS ${velmora_image_stamp})
