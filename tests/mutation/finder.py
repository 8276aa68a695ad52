"""Finds on the syntax tree what can be changed in a C++ source. Each change is a mutant."""

import re

import clang.cindex
from clang.cindex import CursorKind, TypeKind

import literals
import mutant
from syntax import (FUNCTIONS, JUMPS, LOOPS, SCOPES, is_constant_evaluated, is_expression,
                    is_number, is_scoped_enum, matters, unwrapped)

OTHER_OPERATORS = {
    "==": ("!=",), "!=": ("==",),
    "<": ("<=", ">="), "<=": ("<", ">"), ">": (">=", "<="), ">=": (">", "<"),
    "&&": ("||",), "||": ("&&",), "+": ("-",), "-": ("+",), "*": ("/",), "/": ("*",),
    "|": ("&",), "&": ("|",), "<<": (">>",), ">>": ("<<",),
    "+=": ("-=",), "-=": ("+=",), "|=": ("&=",),
}
COMPARISONS = ("==", "!=", "<", "<=", ">", ">=")


class Finder:
    """Walks one source. `found` has its mutants, each change once; `blocks` has the bodies between
    braces in which a call can be put first, from the outer to the inner."""

    def __init__(self, path, name, arguments):
        self.name = name
        self.source = path.read_bytes()
        self.found = {}
        self.blocks = []
        self.scope = (0, len(self.source))
        unit = clang.cindex.Index.create().parse(str(path), arguments)
        errors = [str(d) for d in unit.diagnostics if d.severity >= clang.cindex.Diagnostic.Error]
        if errors:
            raise RuntimeError(f"{name} was not understood: {errors[0]}")
        for cursor in unit.cursor.get_children():
            if cursor.location.file and cursor.location.file.name == str(path):
                self.declaration(cursor)

    def declaration(self, cursor):
        """Each declaration that is no room for others is a scope of its own."""
        if cursor.kind in SCOPES:
            for child in cursor.get_children():
                self.declaration(child)
            return
        self.scope = (cursor.extent.start.offset, cursor.extent.end.offset)
        self.visit(cursor, None, None)

    # ---- What all kinds use ----

    def text_of(self, cursor):
        return self.source[cursor.extent.start.offset:cursor.extent.end.offset]

    def replace(self, kind, start, end, text):
        if self.source[start:end] == text:
            return
        line = self.source.count(b"\n", 0, start) + 1
        self.found.setdefault((start, end, text), mutant.Mutant(
            self.name, line, kind, start, end, text, self.scope))

    def replace_cursor(self, kind, cursor, text):
        self.replace(kind, cursor.extent.start.offset, cursor.extent.end.offset, text)

    def mutants(self):
        return mutant.numbered(self.found.values(), self.source)

    # ---- The walk ----

    def visit(self, cursor, function, parent):
        kind = cursor.kind
        if kind == CursorKind.STATIC_ASSERT:
            return
        if kind in FUNCTIONS:
            function = cursor
        handler = {
            CursorKind.IF_STMT: self.branch,
            CursorKind.FOR_STMT: self.loop,
            CursorKind.WHILE_STMT: self.loop,
            CursorKind.DO_STMT: self.loop,
            CursorKind.CONDITIONAL_OPERATOR: self.choice,
            CursorKind.COMPOUND_STMT: self.block,
            CursorKind.BINARY_OPERATOR: self.binary,
            CursorKind.COMPOUND_ASSIGNMENT_OPERATOR: self.binary,
            CursorKind.UNARY_OPERATOR: self.unary,
            CursorKind.CALL_EXPR: self.call,
            CursorKind.INTEGER_LITERAL: self.number,
            CursorKind.CHARACTER_LITERAL: self.character,
            CursorKind.STRING_LITERAL: self.string,
            CursorKind.CXX_BOOL_LITERAL_EXPR: self.boolean,
            CursorKind.DECL_REF_EXPR: self.named_constant,
            CursorKind.INIT_LIST_EXPR: self.elements,
        }.get(kind)
        if handler:
            handler(cursor)
        if kind == CursorKind.RETURN_STMT:
            self.returned_value(cursor, function)
        if kind in LOOPS or kind == CursorKind.IF_STMT:
            self.single_statements(cursor)
        if kind == CursorKind.COMPOUND_STMT and function is not None:
            self.statements(cursor, is_body=parent == function)
            self.note_block(cursor, function, parent)
        for child in cursor.get_children():
            self.visit(child, function, cursor)

    # ---- Conditions ----

    def in_parentheses(self, statement):
        """The children between the parentheses after `if`, `for` or `while`."""
        depth, closing = 0, statement.extent.end.offset
        for token in statement.get_tokens():
            depth += {"(": 1, ")": -1}.get(token.spelling, 0)
            if token.spelling == ")" and depth == 0:
                closing = token.extent.start.offset
                break
        return [c for c in statement.get_children() if c.extent.end.offset <= closing]

    def branch(self, statement):
        inside = [c for c in self.in_parentheses(statement) if is_expression(c)]
        if not inside:
            return
        children = list(statement.get_children())
        then = children[-1] if children[-2] in inside else None
        if then and then.kind == CursorKind.COMPOUND_STMT:
            body = list(then.get_children())
            then = body[0] if len(body) == 1 else None
        # Without the jump it guards, a condition does what it does when it never holds.
        self.condition(inside[-1], never=not (then and then.kind in JUMPS))

    def loop(self, statement):
        if statement.kind == CursorKind.DO_STMT:
            conditions = [list(statement.get_children())[-1]]
        else:
            conditions = [c for c in self.in_parentheses(statement)
                          if is_expression(c) and c.type.get_canonical().kind == TypeKind.BOOL]
        for condition in conditions[:1]:
            self.condition(condition, always=False)

    def choice(self, expression):
        self.condition(next(expression.get_children()))

    def condition(self, cursor, always=True, never=True):
        text = self.text_of(cursor)
        if not self.is_comparison(cursor) and not text.startswith(b"!"):
            self.replace_cursor("negate", cursor, b"!(" + text + b")")
        if always:
            self.replace_cursor("true", cursor, b"true")
        if never:
            self.replace_cursor("false", cursor, b"false")

    def is_comparison(self, cursor):
        cursor = unwrapped(cursor)
        operator = self.operator_of(cursor)
        return operator is not None and operator.spelling in COMPARISONS

    # ---- Operators ----

    def operands(self, cursor):
        cursor = unwrapped(cursor)
        if cursor.kind == CursorKind.CALL_EXPR:
            return list(cursor.get_arguments())
        return list(cursor.get_children())

    def operator_of(self, cursor):
        """The token between the two operands, also of an overloaded operator."""
        cursor = unwrapped(cursor)
        if cursor.kind not in (CursorKind.BINARY_OPERATOR, CursorKind.CALL_EXPR,
                               CursorKind.COMPOUND_ASSIGNMENT_OPERATOR):
            return None
        if cursor.kind == CursorKind.CALL_EXPR and not cursor.spelling.startswith("operator"):
            return None
        operands = self.operands(cursor)
        if len(operands) != 2:
            return None
        low, high = operands[0].extent.end.offset, operands[1].extent.start.offset
        for token in cursor.get_tokens():
            if low <= token.extent.start.offset < high and token.spelling in OTHER_OPERATORS:
                return token
        return None

    def binary(self, expression):
        token = self.operator_of(expression)
        if token is None:
            return
        start, end = token.extent.start.offset, token.extent.end.offset
        for other in OTHER_OPERATORS[token.spelling]:
            self.replace("operator", start, end, other.encode())
        if token.spelling in ("&&", "||"):
            neutral = b"true" if token.spelling == "&&" else b"false"
            for operand in self.operands(expression):
                self.replace_cursor("operand", operand, neutral)
                if not self.is_comparison(operand) and not self.text_of(operand).startswith(b"!"):
                    self.replace_cursor("negate", operand, b"!(" + self.text_of(operand) + b")")

    def call(self, expression):
        token = self.operator_of(expression)
        if token is None:
            return
        if token.spelling == "+":  # texts are joined
            for operand in self.operands(expression):
                self.replace_cursor("operand", expression, b"(" + self.text_of(operand) + b")")
        else:
            self.binary(expression)

    def unary(self, expression):
        start, end = expression.extent.start.offset, expression.extent.end.offset
        text = self.text_of(expression)
        for before, after in ((b"++", b"--"), (b"--", b"++")):
            if text.startswith(before):
                self.replace("operator", start, start + 2, after)
            elif text.endswith(before):
                self.replace("operator", end - 2, end, after)
        if text.startswith(b"!") or (text.startswith(b"-") and not text.startswith(b"--")):
            self.replace("operator", start, start + 1, b"")

    # ---- Constants ----

    def number(self, literal):
        for kind, text in literals.other_numbers(self.text_of(literal)):
            self.replace_cursor(kind, literal, text)

    def character(self, literal):
        self.replace_cursor("character", literal, b"'~'")

    def string(self, literal):
        text = self.text_of(literal)
        start = literal.extent.start.offset
        for first, last, other in literals.other_statements(text):
            self.replace("sql", start + first, start + last, other)
        if not text.startswith(b'"'):
            return
        self.replace("string", start, start + 1, b'"~')
        if text != b'""' and self.name.startswith("framework/"):  # texts for people need one
            self.replace_cursor("string", literal, b'""')

    def boolean(self, literal):
        self.replace_cursor("boolean", literal,
                            b"false" if self.text_of(literal) == b"true" else b"true")

    def named_constant(self, reference):
        target = reference.referenced
        if target is None:
            return
        text = self.text_of(reference)
        if target.kind == CursorKind.ENUM_CONSTANT_DECL:
            values = list(target.semantic_parent.get_children())
            following = values[(values.index(target) + 1) % len(values)]
            scope = text[:text.rfind(b"::") + 2] if b"::" in text else b""
            self.replace_cursor("constant", reference, scope + following.spelling.encode())
        elif target.kind == CursorKind.VAR_DECL and re.match(r"k[A-Z]", target.spelling):
            if target.type.kind in (TypeKind.CONSTANTARRAY, TypeKind.INCOMPLETEARRAY):
                if target.type.element_type.get_canonical().kind == TypeKind.CHAR_S:
                    self.replace_cursor("constant", reference, b'"mutant"')
            elif is_number(target.type):
                self.replace_cursor("constant", reference, b"(" + text + b" + 1)")

    # ---- Statements ----

    def end_of(self, statement):
        """Where a statement ends, its semicolon included."""
        end = statement.extent.end.offset
        if self.source[end - 1:end] in (b";", b"}"):
            return end
        semicolon = re.compile(rb"\s*;").match(self.source, end)
        return semicolon.end() if semicolon else end

    def single_statements(self, statement):
        """Statements under an `if` or a loop without braces."""
        for child in list(statement.get_children())[1:]:
            if child.extent.start.offset > statement.extent.start.offset:
                if child not in self.in_parentheses(statement):
                    self.remove(child)

    def remove(self, statement):
        if statement.kind in JUMPS or is_expression(statement) or statement.kind in LOOPS:
            self.replace("remove", statement.extent.start.offset, self.end_of(statement), b";")

    def block(self, compound):
        statements = list(compound.get_children())
        for first, second in zip(statements, statements[1:]):
            if matters(first) and matters(second):
                self.swap(first.extent.start.offset, self.end_of(first),
                          second.extent.start.offset, self.end_of(second))

    def statements(self, compound, is_body):
        children = list(compound.get_children())
        for child in children:
            if not (is_body and child == children[-1] and child.kind == CursorKind.RETURN_STMT):
                self.remove(child)

    def elements(self, braces):
        items = list(braces.get_children())
        for first, second in zip(items, items[1:]):
            if first.kind == second.kind:
                self.swap(first.extent.start.offset, first.extent.end.offset,
                          second.extent.start.offset, second.extent.end.offset)

    def swap(self, first, first_end, second, second_end):
        source = self.source
        self.replace("swap", first, second_end, source[second:second_end] +
                     source[first_end:second] + source[first:first_end])

    def returned_value(self, statement, function):
        values = list(statement.get_children())
        if not values or function is None:
            return
        value = values[0]
        result = value.type.get_canonical()
        if function.kind != CursorKind.LAMBDA_EXPR:
            result = function.result_type.get_canonical()
        text = self.text_of(value)
        if result.kind == TypeKind.BOOL:
            if not self.is_comparison(value) and not text.startswith(b"!"):
                self.replace_cursor("return", value, b"!(" + text + b")")
            if unwrapped(value).kind == CursorKind.CALL_EXPR:
                self.replace_cursor("success", value, b"((void)(" + text + b"), true)")
        elif is_number(result) and not is_scoped_enum(result):
            self.replace_cursor("return", value, b"(" + text + b") + 1")
            if unwrapped(value).kind == CursorKind.CALL_EXPR:
                self.replace_cursor("success", value, b"((void)(" + text + b"), 0)")
        elif result.kind == TypeKind.POINTER:
            self.replace_cursor("return", value, b"nullptr")
        elif result.kind == TypeKind.RECORD:
            self.replace_cursor("return", value, b"{}")
            if "basic_string<" in result.spelling:
                self.replace_cursor("return", value, b'"mutant"')

    # ---- Blocks ----

    def note_block(self, compound, function, parent):
        """Where a call that is put after the brace runs, whenever the block is entered."""
        if parent.kind != CursorKind.SWITCH_STMT and not is_constant_evaluated(function):
            self.blocks.append((compound.extent.start.offset, compound.extent.end.offset))
