#pragma once

#include <LumoSeminar/frame/components.h>

/// The objects behind approval: an InfoStarter opens the process of a training need or of a wait-list entry, an
/// InfoDispatcher decides in it. Both work on the tables of schema/process.sql, which also hold the stages of a module
/// and who may decide at which. Nothing of it is kept between two calls.
///
/// A new process waits at the first stage. Each consent takes it to the next one, that of the last stage approves; one
/// rejection at any stage ends it.
namespace LumoConnection {

/// Who works on which database.
struct Login {
    /// Where process objects find their database by themselves. Not needed with a session.
    LumoSeminar::Text connection_text = {};
    /// Empty: that of the operating system.
    LumoSeminar::Text user = {};
    LumoSeminar::Text password = {};
    /// The session that process objects use in place of one of their own; the only way to a database in memory.
    LumoSeminar::Ref<LumoSeminar::DataSession> session = {};
};

/// Numbers of the errors that process objects raise of themselves, beside 9999 with the session's LastErrorText for
/// what the database refuses, and 429 where there is no database to work on.
namespace ProcessError {
/// A decision that does not count: the user has no right at this stage, the process is decided the other way, somebody
/// else decided at the same moment, or there is no subject. The description says which. Nothing was changed.
inline constexpr LumoSeminar::Int32 kDecisionRefused = 70;
}  // namespace ProcessError

/// What ProzessStatus gives. An approved wait-list entry (module 8) has nothing pending any more and reads as kNone.
namespace ProcessStatus {
inline constexpr LumoSeminar::Int32 kNone = 0;
inline constexpr LumoSeminar::Int32 kRunning = 1;
inline constexpr LumoSeminar::Int32 kApproved = 2;
inline constexpr LumoSeminar::Int32 kRejected = 3;
}  // namespace ProcessStatus

/// A process object. It works on the session of the login where there is one, whatever ConnectionString and Verbinden
/// say. Otherwise it opens a session of its own, made by MakeDataSession() of the thread, at the first call that needs
/// it: on the text of the last ConnectionString, or on that of the login; with the user and the password of the last
/// Verbinden, or with those of the login. The first argument of Verbinden is not looked at.
///
/// Starten begins the process of a subject anew, at the first stage: keys of deleted subjects are given out again,
/// and what was decided on such a one counts no more. The step keeps the client and the person that the row of the
/// subject names, where there is one. A key of 0 names no subject and starts nothing. Gives Empty.
LumoSeminar::Ref<LumoSeminar::InfoStarter> MakeProcessStarter(Login login);

/// Zustimmen and Ablehnen count at the stage that the process waits at, and raise ProcessError::kDecisionRefused where
/// they do not count. A subject without a process gets one with the decision, at the last stage. A remark has at most
/// 255 characters. One insert, behind three selects.
/// Once the process is decided, a decision the same way passes and changes nothing, so that a step that failed behind
/// the decision can be done again; it is for users who have a right at any stage of the module. One the other way is
/// refused.
/// Loeschen ends any process, without a word where there is none. BenutzerHatRechte is false once it is decided.
/// ProzessStatusText: "Kein Vorgang", "Stufe 1 von 2: Entscheidung durch Vorgesetzte", "Genehmigt", "Abgelehnt".
/// A process of the key whose last step names another person than the bound one, or another client, is that of a
/// deleted subject and reads as none. Steps that name nobody, as a start without a row of the subject, are anybody's.
LumoSeminar::Ref<LumoSeminar::InfoDispatcher> MakeProcessDispatcher(Login login);

}  // namespace LumoConnection
