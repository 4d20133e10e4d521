# Run by CPack before it packs what was installed: gives every file the time of SOURCE_DATE_EPOCH, if it is set.
# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: The Tavimo developers
if(DEFINED ENV{SOURCE_DATE_EPOCH})
  execute_process(COMMAND find ${CPACK_TEMPORARY_DIRECTORY} -exec touch --no-dereference --date=@$ENV{SOURCE_DATE_EPOCH} {} +
    COMMAND_ERROR_IS_FATAL ANY)
endif()
