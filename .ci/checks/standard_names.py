"""Which header of the standard library has which name; the first of several is the one to add."""

# What every header of a container has to know by itself.
CONTAINERS = "array deque map set span string string_view unordered_map unordered_set vector"

# Headers, and their names behind "std::".
NAMES = {
    "algorithm": """all_of any_of none_of clamp copy copy_if copy_n count count_if equal fill fill_n
        find find_if find_if_not for_each is_sorted lower_bound max max_element min min_element
        minmax mismatch partition ranges remove_if replace reverse rotate search shuffle sort
        stable_sort transform unique upper_bound""",
    "array": "array to_array",
    "atomic": """atomic atomic_flag memory_order_acq_rel memory_order_acquire memory_order_relaxed
        memory_order_release memory_order_seq_cst""",
    "bit": "bit_cast bit_ceil countl_zero endian popcount",
    "cctype": "isalnum isalpha isdigit isspace tolower toupper",
    "cfenv": "feclearexcept fegetround fesetround fetestexcept",
    "charconv": "chars_format from_chars to_chars",
    "chrono": "chrono chrono_literals",
    "cmath": """ceil cos exp fabs floor fma fmod isfinite isinf isnan llround log log10
        lround nan nearbyint pow round signbit sin sqrt trunc""",
    "compare": "partial_ordering strong_ordering weak_ordering",
    "concepts": """convertible_to derived_from floating_point integral invocable same_as
        signed_integral unsigned_integral""",
    "condition_variable": "condition_variable cv_status",
    "csignal": "raise sig_atomic_t signal",
    "cstddef": "byte max_align_t nullptr_t ptrdiff_t to_integer",
    "cstdint": """int8_t int16_t int32_t int64_t intmax_t intptr_t uint8_t uint16_t uint32_t uint64_t
        uintmax_t uintptr_t""",
    "cstdio": """FILE fclose feof ferror fflush fgets fopen fprintf fputs fread fseek fwrite getchar
        perror printf putchar puts rename snprintf""",
    "cstdlib": "_Exit abort atexit atoi exit free getenv llabs malloc quick_exit strtod strtol strtoul system",
    "cstring": """memchr memcmp memcpy memmove memset strchr strcmp strerror strlen strncmp strrchr
        strstr""",
    "ctime": "clock clock_t gmtime localtime mktime strftime time time_t tm",
    "cwchar": "wcstod",
    "deque": "deque",
    "exception": "current_exception exception exception_ptr rethrow_exception terminate",
    "filesystem": "filesystem",
    "fstream": "fstream ifstream ofstream",
    "functional": "bind_front cref function greater hash invoke less plus ref reference_wrapper",
    "future": "async future promise",
    "initializer_list": "initializer_list",
    "iomanip": "hex setfill setprecision setw",
    "iostream": "cerr cin clog cout",
    "iterator": "back_inserter inserter istreambuf_iterator make_move_iterator next prev",
    "limits": "numeric_limits",
    "list": "list",
    "locale": "locale",
    "map": "map multimap",
    "memory": """addressof enable_shared_from_this make_shared make_unique shared_ptr unique_ptr
        weak_ptr""",
    "mutex": "call_once lock_guard mutex once_flag recursive_mutex scoped_lock unique_lock",
    "new": "align_val_t bad_alloc launder nothrow",
    "numbers": "numbers",
    "numeric": "accumulate gcd iota lcm midpoint reduce",
    "optional": "bad_optional_access nullopt nullopt_t optional",
    "random": """bernoulli_distribution discrete_distribution minstd_rand mt19937 mt19937_64
        random_device uniform_int_distribution uniform_real_distribution""",
    "ratio chrono": "micro milli nano ratio",
    "semaphore": "binary_semaphore counting_semaphore",
    "set": "multiset set",
    "source_location": "source_location",
    "span": "as_bytes as_writable_bytes dynamic_extent span",
    "sstream": "istringstream ostringstream stringstream",
    "stdexcept": """domain_error invalid_argument length_error logic_error out_of_range range_error
        runtime_error""",
    "stop_token": "stop_source stop_token",
    "string": """stod stoi stol stoll stoul stoull string string_literals to_string to_wstring u16string
        u8string wstring""",
    "string_view": "string_view string_view_literals u8string_view wstring_view",
    "system_error": "error_code errc generic_category make_error_code system_category system_error",
    "thread": "jthread this_thread thread",
    "tuple": "apply forward_as_tuple make_tuple tie tuple",
    "type_traits": """conditional_t decay_t enable_if_t invoke_result_t is_convertible_v
        is_enum_v is_integral_v is_same_v is_signed_v is_unsigned_v make_signed_t make_unsigned_t
        remove_cvref_t true_type false_type underlying_type_t void_t""",
    "unordered_map": "unordered_map",
    "unordered_set": "unordered_set",
    "utility": """as_const cmp_equal cmp_greater cmp_greater_equal cmp_less cmp_less_equal exchange
        forward in_range make_pair move piecewise_construct swap""",
    "variant": "get_if holds_alternative monostate variant visit",
    "vector": "vector",
    "cstdlib cmath": "abs",
    "cstddef cstdlib cstring cstdio ctime " + CONTAINERS: "size_t",
    "utility map unordered_map": "pair",
    "utility array tuple variant": "get",
    "iterator " + CONTAINERS: "advance begin data distance empty end rbegin rend size ssize",
    "vector string deque map set unordered_map unordered_set": "erase erase_if",
    "ios fstream iostream istream ostream sstream": "ios ios_base streamoff streamsize",
    "istream fstream iostream sstream": "istream",
    "string fstream sstream": "getline",
    "ostream fstream iostream sstream": "endl flush ostream",
}

HEADERS = {name: headers.split() for headers, names in NAMES.items() for name in names.split()}
# A container's header brings it.
HEADERS["initializer_list"] += CONTAINERS.split()
