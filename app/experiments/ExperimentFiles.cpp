#include "app/experiments/ExperimentFiles.h"

#include "app/widgets/Idiomas.h"
#include "data/ExperimentEntry.h"

namespace velmora {

bool ExperimentFiles::Save() {
  if (const std::optional<Message> refusal = RefuseEmptyLists(session_.lists)) {
    dialogs_.Show(&owner_, *refusal);
    return false;
  }
  if (session_.EntryUnsaved() &&
      dialogs_.Show(&owner_, UnsavedQuestion(), Buttons::YesNo) != Answer::Yes)
    return false;
  const QString file =
      dialogs_.SaveFile(&owner_, kSaveFilter, kSuffix, ShownPath(session_.experimentsFile));
  if (file.isEmpty()) return false;
  if (const auto fault = WriteExperimentsFile(session_, LocalPath(file)))
    dialogs_.TellFault(&owner_, *fault);
  return true;
}

QString ExperimentFiles::Choose() {
  const QString tables = Caption(TextId::TablesFilter, session_.language) +
                         QStringLiteral(" (*.csv *.tsv *.txt *.xlsx)");
  return dialogs_.OpenFile(&owner_, kOpenFilter + QStringLiteral(";;") + tables);
}

std::optional<ExperimentsFile> ExperimentFiles::Read(const QString& file) {
  ExperimentsFile read = ReadExperimentsFile(session_, LocalPath(file));
  if (read.fault) dialogs_.TellFault(&owner_, *read.fault);
  if (read.refusal) dialogs_.Show(&owner_, *read.refusal);
  if (read.preview && dialogs_.Show(&owner_, *read.preview, Buttons::OkCancel) != Answer::Ok)
    return std::nullopt;
  if (read.Usable() &&
      (!read.question || dialogs_.Show(&owner_, *read.question, Buttons::NoYes) == Answer::Yes))
    return read;
  Tell(read.remarks);
  return std::nullopt;
}

void ExperimentFiles::Tell(const std::vector<Message>& remarks) {
  for (const Message& remark : remarks) dialogs_.Show(&owner_, remark);
}

}  // namespace velmora
