#pragma once

namespace desk {

// Loads the desk's texts in the user's language where a file of it is built in, and before it those in
// English, which stand for what another language lacks and have the forms of counted things. Once for an
// application.
void LoadTranslations();

}  // namespace desk
