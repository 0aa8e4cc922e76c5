# sources FOLDER...: the files that belong to the project, new ones that are not committed yet included.
sources() {
    if git rev-parse --is-inside-work-tree >/dev/null 2>&1; then
        git ls-files --cached --others --exclude-standard -- "$@" | while IFS= read -r file; do
            [[ ! -f $file ]] || printf '%s\n' "$file"
        done
    else
        find "$@" -type f | sort
    fi
}
