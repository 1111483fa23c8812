#pragma once

#include <LumoSeminar/frame/components.h>
#include <LumoSeminar/frame/data_session.h>
#include <LumoSeminar/frame/date_time.h>
#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/types.h>
#include <LumoSeminar/frame/variant.h>

namespace LumoSeminar {

class colANWBBedarf;

/// A row of AN_WBBedarf_IT.
struct BedarfRow {
    Int32 WBID = 0;
    Int32 MDNr = 0;
    Int32 ANNr = 0;
    Int32 WBS = 0;
    DateTime erfDat;
    DateTime erford;
    DateTime Erfuellt;
    Text erfUser;
    Byte BedarfErfuellt = 0;
    Text Bemerkungen;
};

/// One training need of one employee: a focus area that is wanted, and its way through approval.
///
/// The properties load, lets included: one statement at the first, none after it; a need without a row has empty values,
/// keeps what is let and is not looked for again. A refused load raises 9999.
///
/// What a process object raises keeps its number and its source. WriteToDatabase, DeleteFromDatabase and TeilnahmeZustimmen
/// add their label to its text; through BedarfAblehnen, BenutzerHatGenehmigungsrechte and StatusText it passes as it is.
///
/// Bemerkungen goes into the statements as it stands, and a single quote breaks them (9999): let a text that comes from
/// people as Quoted(text), also one that was read and is written back.
class clsANWBBedarf final : public Object {
  public:
    ~clsANWBBedarf() override;

    /// WBID as decimal text: the key of the entry in a colANWBBedarf. No load.
    Text Key();

    /// The key; 0 for a need that has no row yet. No load.
    Int32 WBID();
    void WBID(Int32 value);
    /// Client number.
    Int32 MDNR();
    void MDNR(Int32 value);
    /// Number of the employee.
    Int32 ANNr();
    void ANNr(Int32 value);
    /// Key of the focus area.
    Int32 WBS();
    void WBS(Int32 value);
    /// Day of capture.
    DateTime ErfDat();
    void ErfDat(DateTime value);
    /// A day of the caller's; 0: none. Stored without time.
    DateTime Erford();
    void Erford(DateTime value);
    /// Day on which the need was settled; 0: it is not.
    DateTime Erfuellt();
    void Erfuellt(DateTime value);
    /// Login of the writer. The insert sets it; what is let never gets into a statement.
    Text ErfUser();
    void ErfUser(Text value);
    /// 0 open, 1 fulfilled, 2 rejected.
    Byte BedarfErfuellt();
    void BedarfErfuellt(Byte value);
    Text Bemerkungen();
    void Bemerkungen(Text value);
    /// A mark of the callers; true at first. No load.
    Bool DoSendInfos();
    void DoSendInfos(Bool value);

    /// Binds the object to a key (0: a new need) and a session. No statement. The result is always false.
    Bool Init(Int32 p_lngWBID, const Ref<DataSession>& p_objData);

    /// Updates a need that has a key: one statement, and the load. Inserts one with key 0: two lookups and one
    /// statement; an open need then gets its process, a settled one its day, and in either case a second write follows,
    /// as an update. Raises 9999 where a statement is refused; a key given out stays.
    Bool WriteToDatabase(Int32 p_lngUserID);

    /// Deletes the row, then drops the process. One statement, and the load where there was none yet. Raises 9999 where
    /// it is refused.
    Bool DeleteFromDatabase();

    /// Records the consent of that user. Once the process is approved (state 2), the employee comes on the wait-list of
    /// the date, unless there is an entry. True where one was written, otherwise Empty. BedarfErfuellt stays.
    Variant TeilnahmeZustimmen(Int32 p_lngSemTerminID, Int32 p_lngUserID);

    /// Records the rejection of that user. Once the process is rejected (state 3), the need is settled with status 2.
    /// The result is always false.
    Bool BedarfAblehnen(Int32 p_lngUserID);

    /// Connection text of the process objects, one for all objects of the thread.
    Text ConnectionString();
    void ConnectionString(Text value);

    /// Whether that user may decide in the process of the need. No step asks for it.
    [[nodiscard]] Bool BenutzerHatGenehmigungsrechte(Int32 p_lngUserID);

    /// The state of the process in words.
    Text StatusText();

  private:
    friend class colANWBBedarf;

    Bool IsInitialized();
    void SetIsInitialized(Int16 value);
    Bool SetBedarfStatus(Byte status, Int32 p_lngUserID);
    Ref<InfoDispatcher> Dispatcher();
    Text UpdateText();
    Text InsertText();

    BedarfRow row_;
    Ref<DataSession> session_;
    Bool p_blnInitialized;
    Bool DoSendInfos_ = true;
};

}  // namespace LumoSeminar
